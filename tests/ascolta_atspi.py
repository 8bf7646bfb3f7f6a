#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Listens on the accessibility bus as a screen reader does, to one program.

It asks for the events Orca asks for (the focus, a change of name or
description, text put in or taken out, the states, the windows, the children
coming and going, an announcement where the toolkit has one) and writes one
line per event of the program named, in the order they come, its fields
parted by tabs:

    type  role  name  detail1  detail2  any_data  [description]

role and name are the source's, as they are when the event is read; any_data
is a text as it came, or "[role | name]" for an object. An object taking the
focus has its description too, which a screen reader says with its name. A backslash, a tab
and a line end inside a field are written as \\\\, \\t and \\n.

The program's toolkit sends only the events that someone on the bus asked
for, and nothing before it: start this first, wait for it to be ready (the
file --pronto names is created then, or without it "pronto" is written on
standard error), then start the program. It stops on SIGTERM or SIGINT, or
after --durata seconds, with everything written. SIGUSR1 writes the
program's accessible tree there and then, one line per object:

    albero  depth  role  name  description  states

With --tempi each line starts with the time it came, HH:MM:SS.mmm and a tab.

    ascolta_atspi.py --app Lesta [--out FILE] [--pronto FILE] [--durata S] [--tempi]

Debian's python3 has pyatspi (python3-pyatspi): run it with /usr/bin/python3.
"""

import argparse
import datetime
import signal
import sys

import pyatspi
from gi.repository import GLib

# What Orca registers for (its default script's listeners), and an
# announcement, which later toolkits send for what is said without a focus.
EVENTI = [
    "focus:",
    "object:property-change:accessible-name",
    "object:property-change:accessible-description",
    "object:property-change:accessible-value",
    "object:text-caret-moved",
    "object:text-changed:delete",
    "object:text-changed:insert",
    "object:text-selection-changed",
    "object:text-attributes-changed",
    "object:active-descendant-changed",
    "object:children-changed:add",
    "object:children-changed:remove",
    "object:state-changed",
    "object:selection-changed",
    "object:value-changed",
    "object:column-reordered",
    "object:row-reordered",
    "object:announcement",
    "window:activate",
    "window:deactivate",
    "window:create",
    "window:destroy",
]


def campo(testo):
    return str(testo).replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n")


def ruolo_e_nome(oggetto):
    try:
        ruolo, nome = oggetto.getRoleName(), oggetto.name
    except Exception:  # an object already gone from the program
        return "?", "?"
    try:
        # The name as it is now: the bus's copy is kept from the first time it
        # was asked, and a program may change a name without saying so. An
        # object going away keeps the copy.
        oggetto.clearCache()
        return oggetto.getRoleName(), oggetto.name
    except Exception:
        return ruolo, nome


def dati(valore, sorgente, di_sorgente):
    if isinstance(valore, pyatspi.Accessible):
        ruolo, nome = di_sorgente if valore == sorgente else ruolo_e_nome(valore)
        return "[%s | %s]" % (ruolo, nome)
    if valore is None:
        return ""
    return valore


class Ascolto:
    def __init__(self, app, uscita, tempi):
        self.app = app
        self.uscita = uscita
        self.tempi = tempi
        self.altri = set()  # the other programs heard, named at the end

    def scrivi(self, *campi):
        if self.tempi:
            campi = (datetime.datetime.now().strftime("%H:%M:%S.%f")[:-3],) + campi
        self.uscita.write("\t".join(campo(c) for c in campi) + "\n")
        self.uscita.flush()

    def del_programma(self, evento):
        try:
            applicazione = evento.host_application
            if applicazione is None:
                applicazione = evento.source.getApplication()
            nome = applicazione.name
        except Exception:
            return False
        if nome != self.app:
            self.altri.add(nome)
        return nome == self.app

    def evento(self, evento):
        if not self.del_programma(evento):
            return
        ruolo, nome = ruolo_e_nome(evento.source)
        campi = [evento.type, ruolo, nome, evento.detail1, evento.detail2,
                 dati(evento.any_data, evento.source, (ruolo, nome))]
        if evento.type.startswith("focus:"):
            try:
                campi.append(evento.source.description)
            except Exception:  # an object already gone from the program
                campi.append("?")
        self.scrivi(*campi)

    def albero(self):
        for applicazione in pyatspi.Registry.getDesktop(0):
            try:
                if applicazione is None or applicazione.name != self.app:
                    continue
            except Exception:
                continue
            self.scrivi_ramo(applicazione, 0)
        return GLib.SOURCE_CONTINUE

    def scrivi_ramo(self, oggetto, profondita):
        ruolo, nome = ruolo_e_nome(oggetto)
        try:
            descrizione = oggetto.description
            stati = " ".join(sorted(pyatspi.stateToString(s) for s in oggetto.getState().getStates()))
            figli = list(oggetto)
        except Exception:
            descrizione, stati, figli = "?", "?", []
        self.scrivi("albero", profondita, ruolo, nome, descrizione, stati)
        for figlio in figli:
            if figlio is not None:
                self.scrivi_ramo(figlio, profondita + 1)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--app", required=True,
                        help="the program's name on the bus (Qt's application name: the executable's unless set)")
    parser.add_argument("--out", help="the file the lines go to (standard output if not given)")
    parser.add_argument("--pronto", help="a file created once the listener is registered")
    parser.add_argument("--durata", type=float, help="stop after so many seconds")
    parser.add_argument("--tempi", action="store_true", help="each line starts with the time it came")
    argomenti = parser.parse_args()

    uscita = open(argomenti.out, "w", encoding="utf-8") if argomenti.out else sys.stdout
    ascolto = Ascolto(argomenti.app, uscita, argomenti.tempi)
    pyatspi.Registry.registerEventListener(ascolto.evento, *EVENTI)

    def ferma():
        pyatspi.Registry.stop()
        return GLib.SOURCE_REMOVE

    for segnale in (signal.SIGTERM, signal.SIGINT):
        GLib.unix_signal_add(GLib.PRIORITY_HIGH, segnale, ferma)
    GLib.unix_signal_add(GLib.PRIORITY_HIGH, signal.SIGUSR1, ascolto.albero)
    if argomenti.durata:
        GLib.timeout_add(int(argomenti.durata * 1000), ferma)

    # Registering asks the registry on the bus and waits for its answer: from
    # here on the program's toolkit knows what to send.
    if argomenti.pronto:
        with open(argomenti.pronto, "w", encoding="utf-8"):
            pass
    else:
        print("pronto", file=sys.stderr, flush=True)

    pyatspi.Registry.start()
    pyatspi.Registry.deregisterEventListener(ascolto.evento, *EVENTI)
    if ascolto.altri:
        print("also heard, and left out: %s" % ", ".join(sorted(ascolto.altri)), file=sys.stderr)
    uscita.flush()
    if uscita is not sys.stdout:
        uscita.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
