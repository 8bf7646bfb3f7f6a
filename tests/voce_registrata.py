# SPDX-License-Identifier: GPL-3.0-or-later
"""A voice for Orca that writes down what it is given to say, and says nothing.

tests/sotto_x11 --orca puts this module beside Orca's settings and names it as
Orca's speech server, so that Orca runs on a machine with no sound card and no
speech synthesizer, never waits on one, and leaves a record of what a player
would hear. Each line of the file SOTTO_X11_PARLATO names is one call, its
fields parted by tabs:

    parla  interrompe  text     something to say; interrompe is 1 when Orca
                                asks to cut what is being said (its
                                speech-dispatcher voice does not: it queues)
    tasto  0           text     the echo of a key
    lettera 0          text     a single character
    zitto  0                    Orca stops what is being said (a key pressed)
"""

import os
import threading

from orca import speechserver


class SpeechServer(speechserver.SpeechServer):
    _una = None

    @staticmethod
    def getFactoryName():
        return "voce registrata"

    @staticmethod
    def getSpeechServers():
        return [SpeechServer.getSpeechServer()]

    @staticmethod
    def getSpeechServer(info=None):
        if SpeechServer._una is None:
            SpeechServer._una = SpeechServer()
        return SpeechServer._una

    @staticmethod
    def shutdownActiveServers():
        if SpeechServer._una is not None:
            SpeechServer._una.shutdown()

    def __init__(self):
        super().__init__()
        self._chiave = threading.Lock()
        percorso = os.environ.get("SOTTO_X11_PARLATO")
        self._file = open(percorso, "a", encoding="utf-8", buffering=1) if percorso else None

    def _scrivi(self, tipo, interrompe, testo=""):
        if self._file is None:
            return
        testo = str(testo).replace("\t", " ").replace("\n", " ")
        with self._chiave:
            self._file.write("%s\t%d\t%s\n" % (tipo, 1 if interrompe else 0, testo))

    def getInfo(self):
        return [self.getFactoryName(), "registrata"]

    def getVoiceFamilies(self):
        return []

    def speak(self, text=None, acss=None, interrupt=True):
        if text:
            self._scrivi("parla", interrupt, text)

    def speakKeyEvent(self, event, acss=None):
        testo = event.getKeyName()
        stato = event.getLockingStateString()
        self._scrivi("tasto", False, "%s %s" % (testo, stato) if stato else testo)

    def speakCharacter(self, character, acss=None):
        self._scrivi("lettera", False, character)

    def sayAll(self, utteranceIterator, progressCallback):
        for contesto, _voce in utteranceIterator:
            self._scrivi("parla", False, contesto.utterance)
            progressCallback(contesto, speechserver.SayAllContext.PROGRESS)
            progressCallback(contesto, speechserver.SayAllContext.COMPLETED)

    def stop(self):
        self._scrivi("zitto", False)

    def shutdown(self):
        if self._file is not None:
            self._file.close()
            self._file = None
        SpeechServer._una = None

    def reset(self, text=None, acss=None):
        pass
