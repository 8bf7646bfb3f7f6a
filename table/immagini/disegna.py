#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws Lesta's pictures: writes every SVG and the resource list beside this file.

Run it after changing a drawing and commit what it writes; the build only
compiles the SVG files that are already here.

    python3 table/immagini/disegna.py

Everything is drawn in the design units of each picture (a card face is
100 x 186). Only shapes that Qt's SVG renderer draws faithfully are used:
paths, circles, ellipses, rectangles, groups with transforms and linear or
radial gradients; no clipping, masks, patterns, filters or text.
"""

import math
import os

QUI = os.path.dirname(os.path.abspath(__file__))

TAVOLO = "#007000"  # the table green, the colour around a card's rounded corners
CONTORNO = "#3a2410"  # the ink of every outline on the cards

ORO = "#f2b632"
ORO_SCURO = "#b7791f"
ROSSO = "#cc1f2f"
ROSSO_SCURO = "#8c1020"
BLU = "#2b62c4"
BLU_CHIARO = "#9cc0ee"
VERDE = "#2f8a35"
VERDE_SCURO = "#17561c"
VIOLA = "#6e3a96"
PELLE = "#f7d2b0"
BIANCO = "#ffffff"

DENARI, COPPE, BASTONI, SPADE = range(4)

# The corner number of each suit, dark enough to read on white.
COLORE_INDICE = ["#b45a00", "#c8102e", "#1c7a24", "#1a48a8"]


def n(x):
    """A number as short as SVG allows."""
    testo = f"{x:.2f}".rstrip("0").rstrip(".")
    return "0" if testo in ("-0", "") else testo


def gruppo(corpo, x=0.0, y=0.0, s=1.0, sy=None, ruota=0.0):
    parti = []
    if x or y:
        parti.append(f"translate({n(x)} {n(y)})")
    if ruota:
        parti.append(f"rotate({n(ruota)})")
    if s != 1.0 or (sy is not None and sy != s):
        parti.append(f"scale({n(s)} {n(s if sy is None else sy)})")
    if not parti:
        return corpo
    return f'<g transform="{" ".join(parti)}">{corpo}</g>'


def tratto(d, colore, largo, extra=""):
    return (
        f'<path d="{d}" fill="none" stroke="{colore}" stroke-width="{n(largo)}" '
        f'stroke-linecap="round" stroke-linejoin="round"{extra}/>'
    )


def forma(d, fill, stroke=CONTORNO, largo=0.8):
    if stroke:
        return (
            f'<path d="{d}" fill="{fill}" stroke="{stroke}" stroke-width="{n(largo)}" '
            f'stroke-linejoin="round"/>'
        )
    return f'<path d="{d}" fill="{fill}"/>'


def cerchio(cx, cy, r, fill, stroke=None, largo=0.8):
    bordo = f' stroke="{stroke}" stroke-width="{n(largo)}"' if stroke else ""
    return f'<circle cx="{n(cx)}" cy="{n(cy)}" r="{n(r)}" fill="{fill}"{bordo}/>'


def ellisse(cx, cy, rx, ry, fill, stroke=None, largo=0.8, ruota=0.0):
    bordo = f' stroke="{stroke}" stroke-width="{n(largo)}"' if stroke else ""
    giro = f' transform="rotate({n(ruota)} {n(cx)} {n(cy)})"' if ruota else ""
    return (
        f'<ellipse cx="{n(cx)}" cy="{n(cy)}" rx="{n(rx)}" ry="{n(ry)}" '
        f'fill="{fill}"{bordo}{giro}/>'
    )


def rettangolo(x, y, w, h, fill, rx=0.0, stroke=None, largo=0.8):
    bordo = f' stroke="{stroke}" stroke-width="{n(largo)}"' if stroke else ""
    tondo = f' rx="{n(rx)}"' if rx else ""
    return (
        f'<rect x="{n(x)}" y="{n(y)}" width="{n(w)}" height="{n(h)}"{tondo} '
        f'fill="{fill}"{bordo}/>'
    )


def documento(larghezza, altezza, corpo, definizioni=""):
    defs = f"<defs>{definizioni}</defs>\n" if definizioni else ""
    return (
        '<?xml version="1.0" encoding="UTF-8"?>\n'
        f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
        f'width="{larghezza}" height="{altezza}" viewBox="0 0 {larghezza} {altezza}">\n'
        f"{defs}{corpo}\n</svg>\n"
    )


# ---------------------------------------------------------------------------
# The four suit symbols, each drawn around the origin.


def denaro(ricco=False):
    """A coin, radius 10. The rich one is the settebello's: red and gold."""
    if ricco:
        fondo, anello, petalo, cuore = "#b0001a", "#ffd84a", "#ffd84a", "#1e8c3a"
    else:
        fondo, anello, petalo, cuore = ORO, ROSSO, "#d9641e", ROSSO
    corpo = [cerchio(0, 0, 10, fondo, CONTORNO, 0.9)]
    corpo.append(cerchio(0, 0, 7.7, "none", anello, 1.3))
    for k in range(12):
        a = math.radians(k * 30)
        corpo.append(cerchio(8.85 * math.sin(a), -8.85 * math.cos(a), 0.55, anello))
    for k in range(8):
        corpo.append(
            f'<ellipse cx="0" cy="-3.7" rx="1.55" ry="3" fill="{petalo}" '
            f'transform="rotate({k * 45})"/>'
        )
    corpo.append(cerchio(0, 0, 1.9, cuore, CONTORNO, 0.5))
    return "".join(corpo)


def coppa():
    """A cup, 26 tall (y -13..13)."""
    return "".join(
        [
            forma("M-8.6,-10.5 H8.6 C8.6,-2.5 5,2 0,2.6 C-5,2 -8.6,-2.5 -8.6,-10.5 Z", ROSSO),
            tratto("M-7.8,-5.6 H7.8", ORO, 1.5),
            forma("M-1.5,2.2 H1.5 L1.9,8.6 H-1.9 Z", ORO, CONTORNO, 0.6),
            ellisse(0, 5.2, 3.1, 1.5, ORO, CONTORNO, 0.6),
            forma("M-7.6,13 C-7.2,9.6 -3.2,8.1 0,8.1 C3.2,8.1 7.2,9.6 7.6,13 Z", ORO),
            rettangolo(-9.8, -13, 19.6, 3.2, ORO, 1.2, CONTORNO, 0.7),
        ]
    )


def bastone():
    """A knotty club, 46 tall (y -23..23), thick at the top and thin at the grip."""
    return "".join(
        [
            forma("M4.2,-9.4 L7.6,-11.4 L8.4,-8.8 L4,-5.6 Z", VERDE, CONTORNO, 0.6),
            ellisse(8, -10.1, 0.7, 1.3, "#b8e0a8", None, 0, -30),
            forma("M-3.4,2.6 L-6.6,1.2 L-7,3.8 L-3.2,6.4 Z", VERDE, CONTORNO, 0.6),
            ellisse(-6.8, 2.5, 0.7, 1.3, "#b8e0a8", None, 0, 20),
            forma(
                "M-4.6,-18 C-5.4,-23.2 5.4,-23.2 4.6,-18 C4.2,-15.4 3.6,-13.4 3.8,-11.4 "
                "C5.4,-10.4 5.4,-7.8 3.6,-6.8 C3.2,-1 3,2 2.9,6 C4.3,7 4.2,9.2 2.8,10 "
                "L2.4,20 C2.2,22.8 -2.2,22.8 -2.4,20 L-2.9,8.6 C-4.3,7.6 -4.3,5 -3,4 "
                "C-3.4,-2 -3.6,-6 -3.8,-9.4 C-5.4,-10.4 -5.4,-12.8 -4,-13.8 "
                "C-4.2,-15.4 -4.4,-16.6 -4.6,-18 Z",
                VERDE,
                CONTORNO,
                0.9,
            ),
            tratto("M-2.8,-18 C-2.8,-8 -1.8,6 -1.2,17", "#86c97a", 1.3),
            tratto("M0.4,-15.6 q1.6,1 1.8,3 M1.6,-1.6 q-1.4,1.2 -1.2,3.2 M0.2,8 q1,0.8 1,2.4", VERDE_SCURO, 0.8),
            rettangolo(-3, 13.2, 6, 2.6, ROSSO, 0.6, CONTORNO, 0.5),
        ]
    )


def spada():
    """A sword pointing up, 48 tall (y -24..24), with a gently curved blade."""
    return "".join(
        [
            forma("M-2.7,10 C-3.4,-3 -2.2,-14 0.6,-24 C3.2,-14.5 3.6,-3 2.7,10 Z", BLU),
            tratto("M0,8 C-0.4,-2 0,-11 0.7,-19", BLU_CHIARO, 1.1),
            rettangolo(-1.8, 11.5, 3.6, 8.6, ROSSO_SCURO, 0.8, CONTORNO, 0.6),
            forma("M-7.4,9.4 Q0,7.4 7.4,9.4 L7.4,12.4 Q0,10.4 -7.4,12.4 Z", ORO),
            cerchio(-7.6, 10.9, 1.6, ORO, CONTORNO, 0.6),
            cerchio(7.6, 10.9, 1.6, ORO, CONTORNO, 0.6),
            cerchio(0, 21.8, 2.6, ORO, CONTORNO, 0.7),
        ]
    )


def simbolo(seme, ricco=False):
    return [lambda: denaro(ricco), coppa, bastone, spada][seme]()


# ---------------------------------------------------------------------------
# The corner index: the value drawn with our own strokes, and a small symbol.

CIFRE = {
    "0": "M5,0 C8,0 10,3.5 10,9 C10,14.5 8,18 5,18 C2,18 0,14.5 0,9 C0,3.5 2,0 5,0 Z",
    "1": "M1.4,4.2 L6,0.3 V18",
    "2": "M0.6,4.2 C1,1.5 3,0 5.2,0 C7.8,0 9.6,1.8 9.6,4.4 C9.6,8.5 3.5,12 0.4,18 H10",
    "3": "M0.8,2.2 C2,0.6 3.6,0 5.2,0 C7.8,0 9.4,1.7 9.4,4.2 C9.4,6.8 7.4,8.4 4.4,8.4 "
    "C7.8,8.4 10,10.3 10,13.1 C10,16.1 7.8,18 5,18 C3,18 1.2,17.2 0,15.6",
    "4": "M7.4,18 V0.3 L0,12.6 H10",
    "5": "M9.2,0.3 H1.6 L0.9,8.2 C2,7.3 3.4,6.8 5,6.8 C8,6.8 10,9 10,12.3 "
    "C10,15.8 7.8,18 4.8,18 C2.8,18 1.2,17.1 0,15.6",
    "6": "M8.8,1.6 C7.8,0.5 6.6,0 5.3,0 C2,0 0,3.6 0,9.4 C0,15 2,18 5.1,18 "
    "C8,18 10,15.8 10,12.5 C10,9.2 8,7 5.2,7 C2.6,7 0.6,8.8 0.1,11.2",
    "7": "M0,0.3 H10 C6.5,5 4.5,11 3.8,18",
    "8": "M5,8.4 C2.3,8.4 0.6,6.7 0.6,4.3 C0.6,1.8 2.4,0 5,0 C7.6,0 9.4,1.8 9.4,4.3 "
    "C9.4,6.7 7.7,8.4 5,8.4 C2,8.4 0,10.4 0,13.2 C0,16.1 2.2,18 5,18 "
    "C7.8,18 10,16.1 10,13.2 C10,10.4 8,8.4 5,8.4 Z",
    "9": "M1.2,16.4 C2.2,17.5 3.4,18 4.7,18 C8,18 10,14.4 10,8.6 C10,3 8,0 4.9,0 "
    "C2,0 0,2.2 0,5.5 C0,8.8 2,11 4.8,11 C7.4,11 9.4,9.2 9.9,6.8",
    "10": "M0.6,4.2 L4.4,0.3 V18 M11.4,0 C13.9,0 15.4,3.5 15.4,9 C15.4,14.5 13.9,18 11.4,18 "
    "C8.9,18 7.4,14.5 7.4,9 C7.4,3.5 8.9,0 11.4,0 Z",
}


def indice(valore, seme):
    """The top-left index; the card repeats it turned round in the opposite corner."""
    colore = COLORE_INDICE[seme]
    cifra = CIFRE[str(valore)]
    larga = 15.4 if valore == 10 else 10.0
    scala = 1.15 if valore == 10 else 1.36
    x = 11 - larga * scala / 2
    numero = gruppo(tratto(cifra, colore, 2.6), x, 4.6, scala)
    piccolo = [
        gruppo(denaro(valore == 7 and seme == DENARI), 11, 43.4, 0.66),
        gruppo(coppa(), 11, 43.4, 0.62),
        gruppo(bastone(), 11, 43.8, 0.78, 0.42),
        gruppo(spada(), 11, 43.2, 0.74, 0.42),
    ][seme]
    return numero + piccolo


# ---------------------------------------------------------------------------
# Number cards: where the symbols stand.

TONDI = {  # coins and cups: where each stands, and how large coins and cups are
    2: ([(50, 52), (50, 134)], 1.6, 1.45),
    3: ([(50, 42), (50, 93), (50, 144)], 1.5, 1.3),
    4: ([(36, 56), (64, 56), (36, 130), (64, 130)], 1.35, 1.3),
    5: ([(36, 50), (64, 50), (50, 93), (36, 136), (64, 136)], 1.32, 1.25),
    6: ([(36, 44), (64, 44), (36, 93), (64, 93), (36, 142), (64, 142)], 1.3, 1.25),
    7: ([(36, 42), (64, 42), (50, 67.5), (36, 93), (64, 93), (36, 144), (64, 144)], 1.25, 1.0),
}


def lunghi(seme, valore):
    """Batons and swords: two or three cross in the middle, more stand in two rows."""
    if valore in (2, 3):
        # each turns about a point of its own, so the grips stay apart
        # batons cross in the middle; swords spread like a fan from near the tips
        perno = 14 if seme == SPADE else 0
        if seme == SPADE:
            angoli = [-20, 20] if valore == 2 else [-30, 0, 30]
        else:
            angoli = [-20, 20] if valore == 2 else [-26, 0, 26]
        scala = 2.35 if seme == BASTONI else 2.0
        return "".join(
            gruppo(gruppo(simbolo(seme), 0, perno), 50, 93 - perno * scala * 0.8, scala, ruota=a)
            for a in angoli
        )
    if valore == 7:
        # three above, three below and one lying across the middle
        corpo = [gruppo(simbolo(seme), 50, 93, 1.05, ruota=90)]
        for y in (48, 138):
            corpo.extend(gruppo(simbolo(seme), x, y, 1.12) for x in (29, 50, 71))
        return "".join(corpo)
    sopra = (valore + 1) // 2
    corpo = []
    for y, quanti in ((60, sopra), (127, valore - sopra)):
        passo = {2: 24, 3: 21, 4: 16}[quanti]
        for k in range(quanti):
            corpo.append(gruppo(simbolo(seme), 50 + (k - (quanti - 1) / 2) * passo, y, 1.2))
    return "".join(corpo)


def rami(cx, cy, largo, alto):
    """Two leafy branches curving up around the Ace's symbol."""
    corpo = []
    foglia = "M0,0 Q3,-2.6 7,0 Q3,2.6 0,0 Z"
    for lato in (-1, 1):
        x0, y0 = cx, cy + alto
        x1, y1 = cx + lato * largo, cy - alto * 0.1
        qx, qy = cx + lato * largo * 1.1, cy + alto * 0.95
        corpo.append(
            tratto(f"M{n(x0)},{n(y0)} Q{n(qx)},{n(qy)} {n(x1)},{n(y1)}", VERDE_SCURO, 1.5)
        )
        for k in range(1, 6):
            t = k / 5.6
            px = (1 - t) ** 2 * x0 + 2 * (1 - t) * t * qx + t * t * x1
            py = (1 - t) ** 2 * y0 + 2 * (1 - t) * t * qy + t * t * y1
            dx = 2 * (1 - t) * (qx - x0) + 2 * t * (x1 - qx)
            dy = 2 * (1 - t) * (qy - y0) + 2 * t * (y1 - qy)
            angolo = math.degrees(math.atan2(dy, dx))
            for verso in (-1, 1):
                corpo.append(
                    gruppo(forma(foglia, VERDE, VERDE_SCURO, 0.5), px, py, ruota=angolo + verso * 38)
                )
        corpo.append(gruppo(forma(foglia, VERDE, VERDE_SCURO, 0.5), x1, y1, ruota=angolo))
    return "".join(corpo)


def asso(seme):
    if seme == DENARI:
        raggi = []
        for k in range(16):
            raggi.append(
                gruppo(forma("M-3,-29 L0,-37 L3,-29 Z", ORO, CONTORNO, 0.7), ruota=k * 22.5)
            )
        return rami(50, 93, 40, 62) + gruppo(
            "".join(raggi) + gruppo(denaro(), s=3) + cerchio(0, 0, 30.5, "none", CONTORNO, 1),
            50,
            88,
        )
    if seme == COPPE:
        return rami(50, 96, 38, 60) + gruppo(coppa(), 50, 88, 2.7)
    if seme == BASTONI:
        return rami(50, 100, 36, 58) + gruppo(bastone(), 50, 90, 2.6, ruota=-14)
    return rami(50, 100, 36, 58) + gruppo(spada(), 50, 90, 2.6, ruota=14)


def numeri(seme, valore):
    if valore == 1:
        return asso(seme)
    if seme in (BASTONI, SPADE):
        return lunghi(seme, valore)
    posti, scala_denaro, scala_coppa = TONDI[valore]
    ricco = seme == DENARI and valore == 7
    scala = scala_denaro if seme == DENARI else scala_coppa
    return "".join(gruppo(simbolo(seme, ricco), x, y, scala) for x, y in posti)


# ---------------------------------------------------------------------------
# The figures: the girl, the horse with its rider and the king, full length,
# each holding the suit symbol.

VESTI = {  # (gown, cloak or second colour, trim)
    DENARI: (ROSSO, "#2e7d3c", ORO),
    COPPE: (BLU, ROSSO, ORO),
    BASTONI: (VERDE, "#d9822b", ORO),
    SPADE: (VIOLA, ORO, "#e9e2c8"),
}


def tenuto(seme, x, y, scala=1.0):
    """The symbol held in a hand at (x, y)."""
    if seme == DENARI:
        return gruppo(denaro(), x, y - 9 * scala, scala)
    if seme == COPPE:
        return gruppo(coppa(), x, y - 11 * scala, scala)
    if seme == BASTONI:
        return gruppo(bastone(), x, y - 9 * scala, scala * 0.95, ruota=-10)
    return gruppo(spada(), x, y - 15 * scala, scala * 1.15, ruota=-8)


def mano(x, y):
    return cerchio(x, y, 2.6, PELLE, CONTORNO, 0.6)


def ombra(cx, cy, rx):
    return ellisse(cx, cy, rx, 3.2, "#000000", None).replace("/>", ' fill-opacity="0.16"/>')


def volto(cx, cy, rx=7, ry=8.5):
    return "".join(
        [
            ellisse(cx, cy, rx, ry, PELLE, CONTORNO, 0.7),
            ellisse(cx - 2.7, cy - 0.6, 0.9, 1.1, "#2a1a10"),
            ellisse(cx + 2.7, cy - 0.6, 0.9, 1.1, "#2a1a10"),
            tratto(f"M{n(cx - 1.8)},{n(cy + 4.2)} Q{n(cx)},{n(cy + 5.4)} {n(cx + 1.8)},{n(cy + 4.2)}", ROSSO_SCURO, 0.8),
            ellisse(cx - 4.3, cy + 2.4, 1.4, 0.9, "#f0a0a0"),
            ellisse(cx + 4.3, cy + 2.4, 1.4, 0.9, "#f0a0a0"),
        ]
    )


def re(seme):
    veste, manto, bordo = VESTI[seme]
    corpo = [ombra(50, 170, 27)]
    # the cloak behind, open in front
    corpo.append(forma("M37,55 C30,80 24,128 21,166 Q50,173 79,166 C76,128 70,80 63,55 Z", manto))
    # the gown
    corpo.append(forma("M40,60 C39,100 35,140 33,167 L67,167 C65,140 61,100 60,60 Z", veste))
    corpo.append(forma("M47.6,62 L45.5,167 L54.5,167 L52.4,62 Z", bordo, CONTORNO, 0.5))
    corpo.append(forma("M33.6,160 L66.4,160 L67,167 L33,167 Z", bordo, CONTORNO, 0.5))
    corpo.append(rettangolo(39, 96, 22, 4.4, bordo, 1, CONTORNO, 0.6))
    corpo.append(ellisse(43, 168.5, 5, 2.4, "#3a2a20"))
    corpo.append(ellisse(57, 168.5, 5, 2.4, "#3a2a20"))
    # the arm that holds the symbol, and the one on the belt
    corpo.append(forma("M38,56 C31,63 27,72 25,83 L32,85 C33.6,76 37,68 43,62 Z", veste))
    corpo.append(rettangolo(24.4, 79.6, 8.4, 3.2, bordo, 1, CONTORNO, 0.5))
    corpo.append(forma("M62,56 C69,66 71,82 64,96 L58.6,93 C63,82 62,70 57,62 Z", veste))
    # the ermine collar
    corpo.append(forma("M33.5,57 Q50,69 66.5,57 L63,51 Q50,59 37,51 Z", BIANCO))
    for x, y in ((39, 56.4), (45, 59.4), (50, 60.4), (55, 59.4), (61, 56.4)):
        corpo.append(ellisse(x, y, 0.8, 1.2, "#202020"))
    # head, beard and crown
    corpo.append(rettangolo(47, 46, 6, 6, PELLE))
    corpo.append(volto(50, 41))
    corpo.append(forma("M42.6,42 C42.4,52 47,57.5 50,58.5 C53,57.5 57.6,52 57.4,42 C55,47 52.6,46 50,46.6 C47.4,46 45,47 42.6,42 Z", "#6b4a2b", CONTORNO, 0.6))
    corpo.append(tratto("M46,45.6 Q50,43.4 54,45.6", "#6b4a2b", 1.6))
    corpo.append(forma("M41.6,34.5 L41,22.5 L45.4,28.4 L50,19.6 L54.6,28.4 L59,22.5 L58.4,34.5 Z", ORO))
    corpo.append(rettangolo(41.4, 32, 17.2, 3.4, ORO, 0.8, CONTORNO, 0.6))
    corpo.append(cerchio(50, 33.7, 1.2, ROSSO))
    corpo.append(cerchio(44.5, 33.7, 0.9, BLU))
    corpo.append(cerchio(55.5, 33.7, 0.9, BLU))
    corpo.append(cerchio(41, 22.5, 1, ORO, CONTORNO, 0.5))
    corpo.append(cerchio(50, 19.6, 1.1, ORO, CONTORNO, 0.5))
    corpo.append(cerchio(59, 22.5, 1, ORO, CONTORNO, 0.5))
    corpo.append(tenuto(seme, 28.4, 82, 1.25))
    corpo.append(mano(28.4, 84))
    corpo.append(mano(61, 95.4))
    return "".join(corpo)


def donna(seme):
    veste, seconda, bordo = VESTI[seme]
    capelli = "#8a4b1f" if seme in (DENARI, BASTONI) else "#d8a63a"
    corpo = [ombra(50, 169, 28)]
    # long hair behind the shoulders
    corpo.append(forma("M41.4,32 C36,42 36.4,60 39,72 L61,72 C63.6,60 64,42 58.6,32 Z", capelli, CONTORNO, 0.6))
    # the wide skirt and its front panel
    corpo.append(forma("M42.4,84 C36,110 27,140 22,166 Q50,173 78,166 C73,140 64,110 57.6,84 Z", veste))
    corpo.append(forma("M46.5,86 L39.5,167.6 Q50,169 60.5,167.6 L53.5,86 Z", seconda, CONTORNO, 0.5))
    corpo.append(tratto("M23.4,161.6 Q50,168 76.6,161.6", bordo, 2.2))
    # the bodice, the neckline and the waist
    corpo.append(forma("M41.6,57.5 Q50,61 58.4,57.5 L57.6,86 L42.4,86 Z", seconda))
    corpo.append(forma("M43.6,57.6 Q50,66 56.4,57.6 Q50,60 43.6,57.6 Z", BIANCO, CONTORNO, 0.5))
    corpo.append(rettangolo(41.8, 82.6, 16.4, 3.6, bordo, 1, CONTORNO, 0.5))
    corpo.append(tratto("M46,68 L54,76 M54,68 L46,76", bordo, 0.9))
    # puffed sleeves: the near arm holds the symbol up, the other rests on the skirt
    corpo.append(forma("M42,57 C35,57 32,62 33.4,68 C31.4,72 30.2,77 29.6,82 L35.6,83.4 C36.4,78 38,73.6 41,70 C43.6,66 44.6,60 42,57 Z", veste))
    corpo.append(forma("M58,57 C65,57 68,62 66.6,68 C68.6,76 66.4,88 62.4,97 L57.4,94.4 C60,87 61,79 59,72 C56.4,66 55.4,60 58,57 Z", veste))
    # head, hair and a small diadem
    corpo.append(rettangolo(47.4, 44, 5.2, 8, PELLE))
    corpo.append(volto(50, 39.5, 6.6, 8))
    corpo.append(forma("M43,38 C42,30 46,27.6 50,27.6 C54,27.6 58,30 57,38 C55,33 52,32.4 50,32.4 C48,32.4 45,33 43,38 Z", capelli, CONTORNO, 0.6))
    corpo.append(forma("M44,30.6 L46,25.4 L48.2,29 L50,24 L51.8,29 L54,25.4 L56,30.6 Q50,28.6 44,30.6 Z", ORO, CONTORNO, 0.5))
    corpo.append(cerchio(50, 27.2, 0.9, ROSSO))
    corpo.append(tenuto(seme, 32.4, 82, 1.15))
    corpo.append(mano(32.4, 83.6))
    corpo.append(mano(60, 96))
    return "".join(corpo)


def cavallo(seme):
    veste, seconda, bordo = VESTI[seme]
    manto, lontano, criniera = {
        DENARI: ("#f6f2e8", "#d6d0c2", "#c9b68a"),
        COPPE: ("#a0602e", "#7a4620", "#3a2414"),
        BASTONI: ("#c9c4ba", "#a39d92", "#5e5850"),
        SPADE: ("#5a3a22", "#422814", "#1e120a"),
    }[seme]
    scuro = "#2a1a10"
    corpo = [ombra(50, 168, 36)]
    # the tail and the legs on the far side
    corpo.append(forma("M80,112 C88,116 90,134 87,152 C84.6,142 82,132 78,124 Z", criniera, CONTORNO, 0.6))
    corpo.append(forma("M34.6,127 L41.4,127 L40,149 L39.8,162.6 L35.4,162.6 L35.6,149 Z", lontano, CONTORNO, 0.6))
    corpo.append(forma("M67,127 L74,127 L72,147 L71.8,162.6 L67.4,162.6 L67.6,147 Z", lontano, CONTORNO, 0.6))
    corpo.append(rettangolo(34.6, 161.4, 6, 4.2, scuro, 0.8))
    corpo.append(rettangolo(66.6, 161.4, 6, 4.2, scuro, 0.8))
    # head, neck and body in one outline, facing left
    corpo.append(forma("M29.6,82 L31.6,76.6 L33.4,83.6 Z", manto, CONTORNO, 0.6))
    corpo.append(
        forma(
            "M12.6,99 C16.6,93 21,88 25.6,84.6 L27.6,78 L31.2,84.8 C36,89 40.4,98 45.4,105.6 "
            "C52,108.4 62,108.4 72,107.6 C79.4,107.4 83.4,114 82.4,122 C81.8,127.4 79,131 75,133 "
            "C66,135.4 50,135.4 42,132.4 C37,130.4 34,124 32.6,117 C31,111 28.8,107 26,104.6 "
            "C22,106.8 18,109 14,109 C10.8,109 9.8,105.6 10.8,102.6 Z",
            manto,
            CONTORNO,
            0.8,
        )
    )
    corpo.append(forma("M28.6,82 C34,85 39,93 44,101 L47.6,106.6 C42,104.6 37,99.6 34,95.4 C31.6,91 29.6,87 28.6,82 Z", criniera, CONTORNO, 0.5))
    corpo.append(forma("M27.4,80.6 C25,82 23.4,84.6 23,87.6 C25.6,86 27.6,84.6 28.6,82.6 Z", criniera, CONTORNO, 0.4))
    corpo.append(ellisse(22.6, 91.6, 1.3, 1, scuro))
    corpo.append(ellisse(13.8, 104.4, 0.9, 0.7, scuro))
    corpo.append(tratto("M26.6,86 L17.6,102.6 M13.6,101.6 L24.6,98", ROSSO_SCURO, 1.1))
    corpo.append(tratto("M18.6,101 C28,104 38,102 47,97", ROSSO_SCURO, 0.8))
    # the near legs: a front leg lifted, a hind leg stepping
    corpo.append(forma("M39.6,124 L47,126 L44.6,146 L44,162.6 L39.4,162.6 L40,146 Z", manto, CONTORNO, 0.7))
    corpo.append(rettangolo(38.6, 161.4, 6.6, 4.2, scuro, 0.8))
    corpo.append(forma("M72,124 L81,121 L81.4,138 L79,162.6 L74.6,162.6 L75.4,142 Z", manto, CONTORNO, 0.7))
    corpo.append(rettangolo(73.8, 161.4, 6.6, 4.2, scuro, 0.8))
    # saddle cloth
    corpo.append(forma("M46.6,106.4 C54,104.4 64,104.4 71.6,106.4 L73,127 Q59,132 45.4,127 Z", veste, CONTORNO, 0.6))
    corpo.append(tratto("M45.8,126.6 Q59,131.4 72.6,126.6", bordo, 1.8))
    # the rider: leg, body, arms, head and a feathered hat
    corpo.append(forma("M55,100 L64,102 L61.4,118 L59.4,133.6 L54,133.6 L55,118 Z", seconda, CONTORNO, 0.6))
    corpo.append(forma("M53,132.4 L60.6,132.4 L62,138 L51.6,138 Z", scuro, CONTORNO, 0.5))
    corpo.append(forma("M51,78 Q58.6,75 66,78 L67.6,105.6 Q58.6,109 49.6,105.6 Z", veste, CONTORNO, 0.7))
    corpo.append(rettangolo(49.8, 97, 18, 3.6, bordo, 1, CONTORNO, 0.5))
    corpo.append(forma("M52,80 C47,82 44,86 42,92 C44.6,95 46.6,97 48,99 L51.6,96.6 C50,94 48.6,92.4 47.6,91.4 C49,88 51.6,86 55,85 Z", veste, CONTORNO, 0.7))
    corpo.append(forma("M52.6,80.6 C47,80 42.4,77.4 39.6,73.6 L43.6,70 C46,72.6 49,74.4 53.6,75.4 Z", veste, CONTORNO, 0.7))
    corpo.append(rettangolo(55.6, 70.6, 5, 7, PELLE))
    corpo.append(volto(58, 66, 6.2, 7.4))
    corpo.append(ellisse(58, 59.6, 11, 2.2, seconda, CONTORNO, 0.6))
    corpo.append(forma("M52,59.6 C52,52.6 64,52.6 64,59.6 Z", seconda, CONTORNO, 0.6))
    corpo.append(forma("M62.6,55 C67,50 73,50 76,52.6 C71,52.2 67,54 64,57.6 Z", BIANCO, CONTORNO, 0.5))
    corpo.append(tenuto(seme, 40.4, 71.4, 1.05))
    corpo.append(mano(40.6, 71.6))
    corpo.append(mano(49.4, 98.6))
    # a touch smaller than the other figures, to keep clear of the corner index
    return gruppo(gruppo("".join(corpo), -47, -166), 47, 166, 0.92)


# ---------------------------------------------------------------------------
# Whole cards.


def carta(numero):
    seme = (numero - 1) // 10
    valore = (numero - 1) % 10 + 1
    corpo = [
        rettangolo(0, 0, 100, 186, TAVOLO),
        rettangolo(0.6, 0.6, 98.8, 184.8, BIANCO, 7.5, "#4a4a4a", 1.2),
    ]
    if numero == 7:
        # the settebello wears a double gold frame
        corpo.append(rettangolo(4, 4, 92, 178, "none", 5, ORO_SCURO, 2.2))
        corpo.append(rettangolo(6.6, 6.6, 86.8, 172.8, "none", 3.6, ORO, 1))
    if valore <= 7:
        corpo.append(numeri(seme, valore))
    else:
        corpo.append([None, None, None, None, None, None, None, None, donna, cavallo, re][valore](seme))
    angolo = indice(valore, seme)
    corpo.append(angolo)
    corpo.append(gruppo(angolo, 100, 186, ruota=180))
    return documento(100, 186, "\n".join(corpo))


# ---------------------------------------------------------------------------
# The card back: a grey diamond lattice in a white border.


def ritaglia(poligono, x0, y0, x1, y1):
    """Cuts a convex polygon to an upright rectangle (Sutherland-Hodgman)."""

    def taglia(punti, dentro, incrocio):
        fuori = []
        for i, p in enumerate(punti):
            q = punti[i - 1]
            if dentro(p):
                if not dentro(q):
                    fuori.append(incrocio(q, p))
                fuori.append(p)
            elif dentro(q):
                fuori.append(incrocio(q, p))
        return fuori

    def su_x(c):
        return lambda a, b: (c, a[1] + (b[1] - a[1]) * (c - a[0]) / (b[0] - a[0]))

    def su_y(c):
        return lambda a, b: (a[0] + (b[0] - a[0]) * (c - a[1]) / (b[1] - a[1]), c)

    punti = poligono
    for dentro, incrocio in (
        (lambda p: p[0] >= x0, su_x(x0)),
        (lambda p: p[0] <= x1, su_x(x1)),
        (lambda p: p[1] >= y0, su_y(y0)),
        (lambda p: p[1] <= y1, su_y(y1)),
    ):
        if not punti:
            break
        punti = taglia(punti, dentro, incrocio)
    return punti


def poligono(punti, fill):
    d = "M" + " L".join(f"{n(x)},{n(y)}" for x, y in punti) + " Z"
    return forma(d, fill, None)


def dorso():
    x0, y0, x1, y1 = 7, 7, 89, 146
    corpo = [
        rettangolo(0, 0, 96, 153, TAVOLO),
        rettangolo(0.6, 0.6, 94.8, 151.8, BIANCO, 6.5, "#4a4a4a", 1.2),
        rettangolo(x0, y0, x1 - x0, y1 - y0, "#8c8c8c"),
    ]
    passo_x, passo_y = 10.25, 11.58
    cx0, cy0 = 48, 76.5
    for i in range(-6, 7):
        for j in range(-8, 9):
            cx, cy = cx0 + i * passo_x, cy0 + j * passo_y
            colore = "#5e5e5e" if (i + j) % 2 == 0 else "#b4b4b4"
            rombo = [
                (cx, cy - passo_y / 2 + 0.9),
                (cx + passo_x / 2 - 0.9, cy),
                (cx, cy + passo_y / 2 - 0.9),
                (cx - passo_x / 2 + 0.9, cy),
            ]
            pezzo = ritaglia(rombo, x0, y0, x1, y1)
            if len(pezzo) >= 3:
                corpo.append(poligono(pezzo, colore))
            punto = ritaglia(
                [(cx + passo_x / 2 - 1, cy + passo_y / 2), (cx + passo_x / 2, cy + passo_y / 2 - 1.1),
                 (cx + passo_x / 2 + 1, cy + passo_y / 2), (cx + passo_x / 2, cy + passo_y / 2 + 1.1)],
                x0, y0, x1, y1,
            )
            if len(punto) >= 3:
                corpo.append(poligono(punto, "#e6e6e6"))
    corpo.append(rettangolo(x0, y0, x1 - x0, y1 - y0, "none", 0, "#3c3c3c", 1.4))
    corpo.append(rettangolo(x0 + 3, y0 + 3, x1 - x0 - 6, y1 - y0 - 6, "none", 0, "#f0f0f0", 0.8))
    # the medallion in the middle
    corpo.append(ellisse(48, 76.5, 22, 30, "#f4f4f4", "#3c3c3c", 1.4))
    corpo.append(ellisse(48, 76.5, 18.5, 26.5, "none", "#7a7a7a", 0.9))
    for k in range(8):
        corpo.append(
            f'<ellipse cx="0" cy="-11" rx="3.6" ry="9" fill="#9a9a9a" stroke="#3c3c3c" '
            f'stroke-width="0.7" transform="translate(48 76.5) rotate({k * 45})"/>'
        )
    corpo.append(cerchio(48, 76.5, 5, "#5e5e5e", "#3c3c3c", 0.8))
    corpo.append(cerchio(48, 76.5, 2, "#e6e6e6"))
    return documento(96, 153, "\n".join(corpo))


# ---------------------------------------------------------------------------
# The title: "Lesta" in a running hand, white with a black shadow, on blue.

SCRITTA = [
    # L: a loop at the top, a slanted stem, a small loop at the foot
    "M60,48 C52,34 62,16 78,14 C92,13 92,28 80,34 C70,40 64,54 58,70 "
    "C53,82 47,95 34,99 C22,102 18,90 29,88 C42,86 52,99 66,99 "
    "C80,99 90,92 98,84",
    # e
    "M98,84 C106,80 116,73 116,66 C116,58 105,58 100,67 C94,78 98,98 112,98 "
    "C120,98 126,92 132,86",
    # s
    "M132,86 C136,80 140,72 143,62 C147,70 154,78 153,88 C152,97 140,100 134,94 "
    "M153,88 C158,96 166,96 171,90",
    # t
    "M184,32 C181,50 176,70 174,84 C173,94 177,99 185,97 C192,95 198,89 202,84 "
    "M166,56 C178,54 190,52 200,51",
    # a
    "M230,66 C224,58 208,60 204,76 C200,92 212,100 222,88 C226,82 229,74 232,64 "
    "C229,76 226,88 228,95 C231,100 240,97 252,84",
    # a closing swash under the word
    "M40,112 C90,104 160,103 262,104",
]


def titolo():
    corpo = [rettangolo(0, 0, 291, 127, "#0000ff")]
    for d in SCRITTA:
        corpo.append(gruppo(tratto(d, "#000000", 9), 4, 4))
    for d in SCRITTA:
        corpo.append(tratto(d, BIANCO, 9))
    return documento(291, 127, "\n".join(corpo))


# ---------------------------------------------------------------------------
# The song frame, the lamp, the traffic lights and the window icon.


def quadro():
    definizioni = (
        '<linearGradient id="legno" x1="0" y1="0" x2="1" y2="1">'
        '<stop offset="0" stop-color="#4a4a52"/><stop offset="0.5" stop-color="#1c1c22"/>'
        '<stop offset="1" stop-color="#0c0c10"/></linearGradient>'
    )
    corpo = [
        rettangolo(0, 0, 195, 145, "url(#legno)"),
        rettangolo(1, 1, 193, 143, "none", 0, "#6a6a74", 2),
        forma("M16,16 H179 L172,23 H23 Z", "#08080a", None),
        forma("M16,16 L23,23 V122 L16,129 Z", "#08080a", None),
        forma("M179,16 V129 L172,122 V23 Z", "#3a3a44", None),
        forma("M16,129 H179 L172,122 H23 Z", "#3a3a44", None),
        rettangolo(23, 23, 149, 99, BIANCO),
        rettangolo(23.5, 23.5, 148, 98, "none", 0, "#9a9aa4", 1),
        rettangolo(8, 8, 179, 129, "none", 0, "#5a5a64", 1),
    ]
    return documento(195, 145, "\n".join(corpo), definizioni)


def lampada(id_, cx, cy, r, chiaro, medio, scuro):
    definizione = (
        f'<radialGradient id="{id_}" cx="{n(cx - r * 0.3)}" cy="{n(cy - r * 0.3)}" r="{n(r * 1.3)}" '
        f'fx="{n(cx - r * 0.35)}" fy="{n(cy - r * 0.35)}" gradientUnits="userSpaceOnUse">'
        f'<stop offset="0" stop-color="{chiaro}"/><stop offset="0.45" stop-color="{medio}"/>'
        f'<stop offset="1" stop-color="{scuro}"/></radialGradient>'
    )
    return definizione, cerchio(cx, cy, r, f"url(#{id_})", "#101010", 0.8)


def led():
    definizione, lampadina = lampada("luce", 6.5, 6.5, 5.6, "#eaffea", "#2ee84a", "#0a6a18")
    corpo = [cerchio(6.5, 6.5, 6.3, "#1a1a1a"), lampadina]
    return documento(13, 13, "\n".join(corpo), definizione)


def semaforo(acceso):
    lampade = [
        ("rosso", 7.5, ("#ffd0d0", "#ff2a2a", "#8a0000"), ("#6a3030", "#4a1414", "#240606")),
        ("giallo", 16, ("#fff4c0", "#ffb400", "#8a5a00"), ("#6a5a30", "#4a3a10", "#241a04")),
        ("verde", 24.5, ("#d8ffd8", "#22e040", "#006a12"), ("#2e5a34", "#143a1a", "#041a08")),
    ]
    definizioni = []
    corpo = [
        rettangolo(0, 0, 32, 32, TAVOLO),
        rettangolo(14.6, 28, 2.8, 4, "#2a2a2a"),
        rettangolo(8.5, 1, 15, 30, "#1e1e1e", 3.2, "#000000", 0.8),
        rettangolo(9.6, 2.1, 12.8, 27.8, "none", 2.4, "#4a4a4a", 0.6),
    ]
    for nome, y, vivo, spento in lampade:
        colori = vivo if nome == acceso else spento
        definizione, lampadina = lampada(nome, 16, y, 3.6, *colori)
        definizioni.append(definizione)
        corpo.append(lampadina)
    return documento(32, 32, "\n".join(corpo), "".join(definizioni))


def icona():
    """A fan of four cards held at the bottom, the settebello in front."""
    sagoma = rettangolo(-6.4, -21, 12.8, 20, BIANCO, 1.8, "#303030", 0.8)
    carte = [
        (-33, gruppo(coppa(), -2.4, -15.4, 0.3)),
        (-11, gruppo(spada(), -2.6, -15.2, 0.2)),
        (11, gruppo(bastone(), -2.6, -15.4, 0.2)),
        (33, gruppo(denaro(True), 0, -11, 0.55)),
    ]
    corpo = [gruppo(sagoma + disegno, 16, 28.6, ruota=angolo) for angolo, disegno in carte]
    return documento(32, 32, "\n".join(corpo))


# ---------------------------------------------------------------------------


def scrivi(nome, testo):
    with open(os.path.join(QUI, nome), "w", encoding="utf-8") as f:
        f.write(testo)


def main():
    nomi = []
    for numero in range(1, 41):
        nome = f"carta{numero:02d}.svg"
        scrivi(nome, carta(numero))
        nomi.append(nome)
    for nome, disegno in (
        ("dorso.svg", dorso),
        ("titolo.svg", titolo),
        ("quadro.svg", quadro),
        ("led.svg", led),
        ("verde.svg", lambda: semaforo("verde")),
        ("rosso.svg", lambda: semaforo("rosso")),
        ("icona.svg", icona),
    ):
        scrivi(nome, disegno())
        nomi.append(nome)
    righe = "\n".join(f"    <file>{nome}</file>" for nome in nomi)
    scrivi(
        "immagini.qrc",
        f'<!DOCTYPE RCC>\n<RCC version="1.0">\n  <qresource prefix="/lesta">\n{righe}\n  </qresource>\n</RCC>\n',
    )


if __name__ == "__main__":
    main()
