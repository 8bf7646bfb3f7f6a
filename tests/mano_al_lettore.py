#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A single hand played by ear, as a player who cannot see the table plays it.

On the desktop that tests/sotto_x11 makes, with its listener (and Orca,
if it runs), the game is started at "High" with no music, and played by
keys pressed with xdotool, each chosen from what reached the listener alone:
Enter on GO; at each "Your turn" the first card of the hand as it was read;
when that card must take, the table read again with its key, and the cards
of a capture marked by theirs; on the score sheet, Enter on the button that
holds the keyboard. Then what reached the listener must name the three
cards of the first deal as the player plays them, the computer's first card,
each lesta as the sheet counts them, and the hand's points as the sheet
shows them; and Orca, when it runs, must have said every notification.

    mano_al_lettore.py LESTA EVENTS [SPOKEN] --lingua en|it [--trascrizione FILE]

EVENTS is the listener's file, SPOKEN Orca's voice's; the notifications and
the sheet as they were read go to the transcript. Exits 0 when all holds.
"""

import argparse
import itertools
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

# The words of the game in each language, as it says them.
PAROLE = {
    "en": {
        "turno": "Your turn.", "carte": "Your cards: ", "tavola": "On the table: ", "vuota": "The table is empty.",
        "deve": " must take", "pari": "a card of the same value", "di": "of",
        "prima": r"Deal 1 of 6\. Your cards: (.*?)\. Cards left",
        "gioco_mio": r"You (?:play|lay) the {}(?: |\.)", "gioco_computer": r"The computer (?:plays|lays) the (\w+ of \w+)",
        "valori": ["Ace", "Two", "Three", "Four", "Five", "Six", "Seven", "Girl", "Horse", "King"],
        "giocatore": "Player", "punti": r"Leste (\d+); (\d+) points?",
    },
    "it": {
        "turno": "Tocca a te.", "carte": "Le tue carte: ", "tavola": "In tavola: ", "vuota": "La tavola è vuota.",
        "deve": " deve prendere", "pari": "una carta di pari valore", "di": "di",
        "prima": r"Distribuzione 1 di 6\. Le tue carte: (.*?)\. Carte rimaste",
        "gioco_mio": r"(?:Giochi|Metti) (?:il |l'|la ){}(?: |\.)", "gioco_computer": r"Il computer (?:gioca|mette) (?:il |l'|la )(\w+ di \w+)",
        "valori": ["Asso", "Due", "Tre", "Quattro", "Cinque", "Sei", "Sette", "Donna", "Cavallo", "Re"],
        "giocatore": "Giocatore", "punti": r"Leste (\d+); (\d+) punt[oi]",
    },
}


class Fallito(Exception):
    pass


class Ascolto:
    """What reached the listener, read as it comes."""

    def __init__(self, percorso, processo):
        self.percorso = percorso
        self.processo = processo
        self.letto = 0
        self.righe = []
        self.da_vedere = []  # read from the file, not yet looked at

    def nuove(self):
        try:
            with open(self.percorso, encoding="utf-8") as f:
                f.seek(self.letto)
                testo = f.read()
        except FileNotFoundError:
            return []
        fine = testo.rfind("\n") + 1
        self.letto += len(testo[:fine].encode("utf-8"))
        nuove = [r.split("\t") for r in testo[:fine].splitlines()]
        self.righe += nuove
        return nuove

    def attendi(self, cosa, condizione, secondi=60):
        """The first line not yet looked at for which the condition holds.
        Those read with it and after it wait for the next call: two
        notifications may reach the file between two readings of it."""
        limite = time.monotonic() + secondi
        while time.monotonic() < limite:
            self.da_vedere += self.nuove()
            while self.da_vedere:
                campi = self.da_vedere.pop(0)
                if condizione(campi):
                    return campi
            if self.processo.poll() is not None:
                raise Fallito("the game ended while waiting for %s" % cosa)
            time.sleep(0.05)
        raise Fallito("%s did not come in %d s" % (cosa, secondi))


def notifica(campi):
    return len(campi) >= 4 and campi[0] == "object:state-changed:showing" and campi[1] == "notification" \
        and campi[3] == "1"


def testo(campo):
    return campo.replace("\\n", "\n").replace("\\t", "\t").replace("\\\\", "\\")


def premi(tasto):
    subprocess.run(["xdotool", "key", tasto], check=True)


def valore(nome, p):
    return p["valori"].index(nome.split(" ")[0]) + 1


def presa_possibile(carte, v, singola):
    """The keys of a capture the card of value v may make from the cells read."""
    if singola:
        return next([k] for k, c in carte if c == v)
    for n in range(2, len(carte) + 1):
        for scelta in itertools.combinations(carte, n):
            if sum(c for _, c in scelta) == v:
                return [k for k, _ in scelta]
    raise Fallito("no capture adds up to %d on %s" % (v, carte))


def ascolta(parlato, riga, secondi=10):
    """As a player by ear: what the game said is heard before a key is
    pressed (when Orca runs, until it has said it)."""
    limite = time.monotonic() + secondi
    while parlato is not None and time.monotonic() < limite:
        with open(parlato, encoding="utf-8") as f:
            if riga in f.read():
                return
        time.sleep(0.05)


def gioca(ascolto, p, notifiche, parlato):
    ascolto.attendi("GO holding the keyboard", lambda c: c[0] == "focus:" and c[2] == "GO")
    premi("Return")
    while True:
        campi = ascolto.attendi(
            "a line of the game, or the score sheet",
            lambda c: notifica(c) or (c[0] == "focus:" and c[1] == "push button" and c[2] in ("NEW GAME", "CONTINUE")),
            secondi=120)
        if not notifica(campi):
            return campi
        riga = testo(campi[2])
        notifiche.append(riga)
        ascolta(parlato, riga)
        if p["turno"] in riga:
            mano = riga.split(p["turno"], 1)[1].split(p["carte"], 1)[1]
            premi(mano[0])  # the first card left in hand, by its key
        elif p["deve"] in riga:
            # The table read again by its key, and a capture marked.
            premi("t")
            tavola = testo(ascolto.attendi(
                "the table read", lambda c: notifica(c) and testo(c[2]).startswith(p["tavola"]))[2])
            notifiche.append(tavola)
            ascolta(parlato, tavola)
            celle = re.findall(r"([QWERASDFZXCV]): (\w+) %s \w+" % p["di"], tavola)
            carta = re.search(r"(?:The |Il |La |L')(\w+) %s \w+%s" % (p["di"], p["deve"]), riga).group(1)
            chiavi = presa_possibile([(k, valore(n, p)) for k, n in celle], valore(carta, p), p["pari"] in riga)
            for k in chiavi:
                premi(k.lower())


def controlla(ascolto, p, notifiche, foglio, parlato):
    tutto = "\n".join(notifiche)
    # The three cards of the first deal, each played by the player later on.
    prima = re.search(p["prima"], tutto)
    if not prima:
        raise Fallito("the first deal was not told")
    mie = re.findall(r"\d: (\w+ %s \w+)" % p["di"], prima.group(1))
    if len(mie) != 3:
        raise Fallito("the first deal named %s" % mie)
    for carta in mie:
        if not re.search(p["gioco_mio"].format(re.escape(carta)), tutto):
            raise Fallito("the player's %s was never told played" % carta)
    # The computer's first card.
    if not re.search(p["gioco_computer"], tutto):
        raise Fallito("no card of the computer was told")
    # The sheet as read and as shown: its cells are the labels shown in
    # it, after the ten column heads, the player's five then the computer's.
    lettura = testo(foglio[6]) if len(foglio) > 6 else ""
    if not lettura:
        raise Fallito("the sheet's button came with no reading")
    mostrate = [testo(c[2]).strip() for c in ascolto.righe
                if c[0] == "object:state-changed:showing" and c[1] == "label" and c[3] == "1"]
    intestazioni = [i for i, t in enumerate(mostrate) if t == "Carte"]
    if len(intestazioni) < 2:
        raise Fallito("the sheet's heads were not shown: %s" % mostrate)
    celle = mostrate[intestazioni[1] + 5:intestazioni[1] + 15]
    letti = [(int(l), int(pt)) for l, pt in re.findall(p["punti"], lettura)]
    for lato, riga in enumerate((celle[:5], celle[5:])):
        carte, denari, primiera, settebello, leste = riga
        punti = (int(carte) > 20) + (int(denari) > 5) + (primiera == "YES") + (settebello == "YES") + int(leste)
        if letti[lato] != (int(leste), punti):
            raise Fallito("side %d's row %s, read as %s" % (lato + 1, riga, letti[lato]))
    if tutto.count("Lesta!") != letti[0][0] + letti[1][0]:
        raise Fallito("%d leste told, %d on the sheet" % (tutto.count("Lesta!"), letti[0][0] + letti[1][0]))
    if parlato is not None:
        with open(parlato, encoding="utf-8") as f:
            detto = f.read()
        for riga in notifiche + [lettura]:
            if riga not in detto:
                raise Fallito("Orca did not say: %s" % riga)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("lesta")
    parser.add_argument("eventi")
    parser.add_argument("parlato", nargs="?")
    parser.add_argument("--lingua", choices=PAROLE, required=True)
    parser.add_argument("--trascrizione")
    a = parser.parse_args()
    p = PAROLE[a.lingua]

    # The game in a folder of its own: "High", no music, cards at 75%.
    cartella = tempfile.mkdtemp()
    gioco = os.path.join(cartella, "lesta")
    shutil.copy(a.lesta, gioco)
    with open(os.path.join(cartella, "Config.brx"), "wb") as f:
        f.write(b" 3 \r\n 0 \r\n 75 \r\n")
    ambiente = dict(os.environ, SDL_AUDIODRIVER=os.environ.get("SDL_AUDIODRIVER", "dummy"))
    processo = subprocess.Popen([gioco], env=ambiente)
    ascolto = Ascolto(a.eventi, processo)
    notifiche = []
    try:
        foglio = gioca(ascolto, p, notifiche, a.parlato)
        # The player listens to the sheet (Orca, when it runs, has said it),
        # then Enter goes on: the button that holds the keyboard is NEW GAME,
        # and the start panel comes back.
        ascolta(a.parlato, testo(foglio[6]) if len(foglio) > 6 else "", secondi=30)
        time.sleep(1)
        premi("Return")
        ascolto.attendi("the start panel again", lambda c: c[0] == "focus:" and c[2] == "GO", secondi=30)
        time.sleep(1)  # what Orca still has to say
        controlla(ascolto, p, notifiche, foglio, a.parlato)
        esito = 0
    except Fallito as e:
        print("mano_al_lettore: %s" % e, file=sys.stderr)
        print("the game told:\n  " + "\n  ".join(notifiche), file=sys.stderr)
        esito = 1
    finally:
        processo.terminate()
        processo.wait(10)
        shutil.rmtree(cartella, ignore_errors=True)
    if a.trascrizione:
        with open(a.trascrizione, "w", encoding="utf-8") as f:
            f.write("\n".join(notifiche) + "\n")
            if esito == 0:
                f.write(testo(foglio[2]) + ": " + testo(foglio[6]) + "\n")
    return esito


if __name__ == "__main__":
    sys.exit(main())
