#!/usr/bin/env python3
"""Makes the four sounds of the shipped cockpit and template, the same to the byte every time.

  scripts/sounds.py           writes them into data
  scripts/sounds.py --check   says which of the files in data differ, status 1 if any does
  scripts/sounds.py --levels  peak and mean level of each, dB below full scale
  scripts/sounds.py --spectra FOLDER
                              a file of frequency (Hz) and level (dB) for each, for gnuplot

Every sound is 22050 Hz, 16 bits, stereo. What loops is a sum of partials that all fit into the loop
a whole number of times, or take each other's place at its end: it has no seam to be heard.
"""

import array
import cmath
import math
import pathlib
import random
import struct
import sys

RATE_HZ = 22050
DATA = pathlib.Path(__file__).resolve().parent.parent / "data"
FOLDERS = [DATA / kind / "737-700" / "sound" for kind in ("Cockpits", "Templates")]


def loop_noise(seed, seconds, low_hz, high_hz, partials, slope):
    """Noise between two frequencies that repeats after `seconds`; each partial is weighted by its
    frequency to the power of `slope`."""
    count = round(seconds * RATE_HZ)
    chance = random.Random(seed)
    turn = [math.sin(2 * math.pi * i / count) for i in range(count)]
    sound = [0.0] * count
    for harmonic in sorted(chance.sample(range(round(low_hz * seconds), round(high_hz * seconds)),
                                         partials)):
        weight = (harmonic / (low_hz * seconds)) ** slope
        place = chance.randrange(count)
        for i in range(count):
            sound[i] += weight * turn[place]
            place = (place + harmonic) % count
    return sound


def scaled(sound, mean_db):
    """With this root mean square, dB below full scale."""
    mean = math.sqrt(sum(x * x for x in sound) / len(sound))
    factor = 10 ** (mean_db / 20) / mean
    return [x * factor for x in sound]


def mixed(*sounds):
    return [sum(values) for values in zip(*sounds)]


def rumble():
    """Wheels on concrete: deep noise, a little of it different on either side."""
    deep = scaled(loop_noise(1, 3, 25, 160, 200, -0.7), -19)
    sides = [scaled(loop_noise(seed, 3, 60, 400, 200, -1.0), -26) for seed in (2, 3)]
    return [mixed(deep, side) for side in sides]


def bump():
    """The struts: a thump whose pitch falls, and a short clap above it."""
    count = round(0.8 * RATE_HZ)
    chance = random.Random(4)
    sides = []
    for _ in range(2):
        phase, clap, side = 0.0, 0.0, []
        for i in range(count):
            t = i / RATE_HZ
            phase += 2 * math.pi * (38 + 45 * math.exp(-t / 0.06)) / RATE_HZ
            clap += 0.15 * (chance.uniform(-1, 1) - clap)
            rise = min(1.0, t / 0.004)
            fall = min(1.0, (count - 1 - i) / (0.05 * RATE_HZ))
            side.append(rise * fall * (0.75 * math.exp(-t / 0.16) * math.sin(phase) +
                                       0.9 * math.exp(-t / 0.03) * clap))
        sides.append(side)
    return sides


def tyres():
    """Rubber that is spun up: a squeal that falls while it fades, rough by noise."""
    count = round(0.7 * RATE_HZ)
    chance = random.Random(5)
    sides = []
    for detune in (1.0, 1.013):
        phase, rough, side = 0.0, 0.0, []
        for i in range(count):
            t = i / RATE_HZ
            rough += 0.25 * (chance.uniform(-1, 1) - rough)
            phase += 2 * math.pi * detune * (1250 - 500 * t) * (1 + 0.15 * rough) / RATE_HZ
            rise = min(1.0, t / 0.015)
            fall = min(1.0, (count - 1 - i) / (0.1 * RATE_HZ))
            squeal = math.sin(phase) + 0.4 * math.sin(2 * phase) + 0.2 * math.sin(3 * phase)
            side.append(rise * fall * math.exp(-t / 0.22) * (0.38 * squeal + 0.5 * rough))
        sides.append(side)
    return sides


def start():
    """A spool that runs up for as long as it is heard. Partials an octave apart rise by an octave in
    the loop, so that at its end each has taken the next one's place; those at the ends are silent."""
    seconds, lowest_hz, octaves = 4, 55, 6
    count = seconds * RATE_HZ
    whine = [0.0] * count
    for octave in range(octaves):
        for harmonic, weight in ((1, 1.0), (3, 0.25)):
            before = lowest_hz * seconds * (2 ** octave - 1) / math.log(2)
            for i in range(count):
                risen = octave + i / count
                turns = before + lowest_hz * seconds * (2 ** risen - 2 ** octave) / math.log(2)
                loudness = 0.5 - 0.5 * math.cos(2 * math.pi * risen / octaves)
                whine[i] += weight * loudness * math.sin(2 * math.pi * harmonic * turns)
    whine = scaled(whine, -20)
    airs = [scaled(loop_noise(seed, seconds, 300, 2500, 250, -0.5), -27) for seed in (6, 7)]
    return [mixed(whine, air) for air in airs]


SOUNDS = {"rumble.wav": rumble, "bump.wav": bump, "tyres.wav": tyres, "start.wav": start}


def wave_file(sides):
    samples = array.array("h")
    for left, right in zip(*sides):
        samples.extend(max(-32768, min(32767, round(32767 * x))) for x in (left, right))
    if sys.byteorder == "big":
        samples.byteswap()
    data = samples.tobytes()
    form = struct.pack("<HHIIHH", 1, 2, RATE_HZ, RATE_HZ * 4, 4, 16)
    return (b"RIFF" + struct.pack("<I", 36 + len(data)) + b"WAVEfmt " +
            struct.pack("<I", len(form)) + form + b"data" + struct.pack("<I", len(data)) + data)


def decibel(amplitude):
    return 20 * math.log10(max(amplitude, 1e-9))


def levels():
    for name, make in SOUNDS.items():
        values = [x for side in make() for x in side]
        peak = max(abs(x) for x in values)
        mean = math.sqrt(sum(x * x for x in values) / len(values))
        print(f"{name}: peak {decibel(peak):.1f} dB, mean {decibel(mean):.1f} dB")


def transform(values):
    """The discrete Fourier transform of 2^n values."""
    if len(values) == 1:
        return values
    even, odd = transform(values[0::2]), transform(values[1::2])
    half = len(values) // 2
    turned = [cmath.exp(-1j * math.pi * k / half) * odd[k] for k in range(half)]
    return ([e + o for e, o in zip(even, turned)] + [e - o for e, o in zip(even, turned)])


def spectra(folder):
    """Level in bands of a twelfth of an octave."""
    size = 1 << 16
    for name, make in SOUNDS.items():
        left = make()[0][:size]
        lines = transform(left + [0.0] * (size - len(left)))
        with open(pathlib.Path(folder) / (name + ".txt"), "w") as out:
            band_hz = 20.0
            while band_hz < 10000:
                upper_hz = band_hz * 2 ** (1 / 12)
                first, last = (math.ceil(f * size / RATE_HZ) for f in (band_hz, upper_hz))
                power = sum(abs(x) ** 2 for x in lines[first:last])
                if last > first:
                    amplitude = math.sqrt(2 * power / len(left) / size)
                    out.write(f"{math.sqrt(band_hz * upper_hz):.1f} {decibel(amplitude):.1f}\n")
                band_hz = upper_hz


def main():
    if sys.argv[1:] == ["--levels"]:
        levels()
    elif len(sys.argv) == 3 and sys.argv[1] == "--spectra":
        spectra(sys.argv[2])
    elif sys.argv[1:] in ([], ["--check"]):
        check = sys.argv[1:] == ["--check"]
        different = []
        for name, make in SOUNDS.items():
            content = wave_file(make())
            for path in (folder / name for folder in FOLDERS):
                if not check:
                    path.parent.mkdir(parents=True, exist_ok=True)
                    path.write_bytes(content)
                elif not path.is_file() or path.read_bytes() != content:
                    different.append(path)
        for path in different:
            print(f"{path} is not what this script makes")
        sys.exit(1 if different else 0)
    else:
        sys.exit(__doc__)


main()
