#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
# Writes the files that the writers of temperaments, stretch tables and scales have to match byte
# for byte. It shares nothing with them: run it again only when the formats change.
import math
import os

os.chdir(os.path.dirname(os.path.abspath(__file__)))
NOTES = "C C# D Eb E F F# G G# A Bb B".split()


def escaped(text):
    for plain, instead in (("\\", "\\\\"), ('"', '\\"'), ("\n", "\\n"), ("\t", "\\t"), ("\r", "\\r")):
        text = text.replace(plain, instead)
    return text


def write(path, text, encoding="utf-8"):
    with open(path, "wb") as file:
        file.write(text.encode(encoding, "replace"))


def temperament(path, name, description, cents):
    lines = [
        "// %s Temperament" % name.replace("\n", " ").replace("\r", " "),
        "",
        '"Name"="%s";' % escaped(name),
        '"Description"="%s";' % escaped(description),
        "",
        "// key: C, A4: 440Hz",
        '// "note" = "cent";\t// ratio : hertz',
    ]
    for i, note in enumerate(NOTES):
        cent = cents[i] - cents[9]
        ratio = 2 ** (((i - 9) * 100 + cent) / 1200)
        lines.append('%-4s="%.9f";\t// %.9f : %.6f' % ('"%s"' % note, cent, ratio, ratio * 440.0))
    write(path, "\n".join(lines) + "\n")


def stretch(path, name, description, cents):
    text = '// %s Stretch Table\n\n"Name"="%s";\n"Description"="%s";\n\n' % (
        name.replace("\n", " "), escaped(name), escaped(description))
    for octave in range(9):
        text += "".join('"%s%d"="%+.3f";\n' % (note, octave, cents[12 * octave + i])
                        for i, note in enumerate(NOTES)) + "\n"
    write(path, text)


def scale(path, name, description, ratios):
    lines = ["! " + name, "!", " " + description, " 12", "!"]
    lines += ["%.6f" % (1200 * math.log2(ratio)) for ratio in ratios[1:]]
    write(path, "\n".join(lines) + "\n2/1\n", "latin-1")


temperament("equal.temperament", "Equal", "", [0.0] * 12)
temperament("texts.temperament", 'Quarter "comma"\nmean\\tone\rof \u00e9\u2603',
            '1/4\tcomma,\n"pure" thirds \\ fifths\r',
            [10.265, -13.686, 3.4215, 20.53, -3.4215, 13.6865, -10.2645, 6.843, -17.1075, 2.5,
             17.1085, -6.84312345678912])
stretch("zero.stretch", "", "", [0.0] * 108)
# Many of these lie half way between two texts; the even one is right.
stretch("curve.stretch", 'A "curve"\nof\rthree', "cubic,\n57 is 0 \\ \u266f", [(i - 57) ** 3 / 4096 for i in range(108)])
scale("equal.scl", "Equal", "of a document in C", [2 ** ((i - 9) / 12) for i in range(12)])
# 90 characters are cut, control characters are spaces, what Latin-1 lacks is a question mark.
scale("just.scl", ("tab here \u00e9\u2603" + "x" * 90)[:80], "above  an  octave",
      [1, 16 / 15, 9 / 8, 6 / 5, 5 / 4, 4 / 3, 45 / 32, 3 / 2, 8 / 5, 5 / 3, 9 / 5, 15 / 8])
