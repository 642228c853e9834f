#!/usr/bin/env python3
"""Makes the sounds that announce the end of a process: makesounds.py FOLDER

end       completed: four bells upwards         aborted   by the user: two bells downwards
error     three short low calls, then a pause, again
v3_mp3    the tune that follows when nobody has come yet; anybody may put a file of his own in its place
Each of the first three has a variant for Poland and for Germany, of the same shape in another key.
"""
import cmath
import math
import struct
import sys
import wave
from functools import lru_cache
from itertools import accumulate, repeat
from operator import mul
from pathlib import Path

RATE = 44100
PEAK = 0.55
# Overtones of a struck bar: ratio to the ground tone, loudness, seconds until it has faded to a third.
BELL = ((1.0, 1.0, 0.45), (2.0, 0.35, 0.25), (3.01, 0.18, 0.15), (5.4, 0.06, 0.06))
REED = ((1.0, 1.0, 1.0), (2.0, 0.5, 1.0), (3.0, 0.3, 1.0), (4.0, 0.1, 1.0))

# Notes: (start in s, half tones above A4, length in s)
SOUNDS = {
    "end": (BELL, [(0.00, 3, 1.2), (0.18, 7, 1.2), (0.36, 10, 1.2), (0.54, 15, 1.6)]),
    "aborted": (BELL, [(0.00, 7, 0.9), (0.28, 0, 1.3)]),
    "error": (REED, [(t, -9, 0.13) for t in (0.0, 0.2, 0.4, 0.95, 1.15, 1.35)]),
    "v3_mp3": (BELL, [(0.30 * i, n, 1.2) for i, n in enumerate((3, 7, 10, 7, 12, 10, 7, 8, 5, 8, 10, 15))]),
}
KEYS = {"": 0, "_pl": 2, "_de": -2}
LOCAL = ("end", "aborted", "error")


@lru_cache
def note(tone, length, voice):
    """The samples; an overtone is a number that turns and shrinks from one to the next."""
    count = int(length * RATE)
    frequency = 440.0 * 2 ** (tone / 12)
    overtones = []
    for ratio, loud, fade in voice:
        turn = cmath.exp((2j * math.pi * frequency * ratio - 1 / fade) / RATE)
        overtones.append(accumulate(repeat(turn, count - 1), mul, initial=complex(loud)))
    # no click where it begins and ends
    edges = (min(1.0, i / RATE / 0.006, (length - i / RATE) / 0.02) for i in range(count))
    return [edge * sum(parts).imag for edge, parts in zip(edges, zip(*overtones))]


def render(voice, notes, key):
    samples = [0.0] * int((max(start + length for start, _, length in notes) + 0.05) * RATE)
    for start, tone, length in notes:
        for i, value in enumerate(note(tone + key, length, voice), int(start * RATE)):
            samples[i] += value
    scale = PEAK * 32767 / max(map(abs, samples))
    return struct.pack(f"<{len(samples)}h", *(round(s * scale) for s in samples))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = Path(sys.argv[1])
    for name, (voice, notes) in SOUNDS.items():
        for suffix, key in KEYS.items():
            if suffix and name not in LOCAL:
                continue
            with wave.open(str(folder / f"{name}{suffix}.wav"), "wb") as out:
                out.setnchannels(1)
                out.setsampwidth(2)
                out.setframerate(RATE)
                out.writeframes(render(voice, notes, key))


if __name__ == "__main__":
    main()
