#!/usr/bin/env python3
"""Writes choices.txt: what seeds choose, computed apart from the program.

Each line: seed, t, count, every, salt, the index and the phase.
"""
import math
import random

MASK = (1 << 64) - 1


def choose(seed, t, count, every, salt):
    slot = math.floor(t / every)
    x = seed ^ (salt * 0xD1B54A32D192ED03 & MASK) ^ ((slot & MASK) * 0x9E3779B97F4A7C15 & MASK)
    x ^= x >> 31
    x = x * 0xBF58476D1CE4E5B9 & MASK
    x ^= x >> 29
    return x % count, t - every * slot


def main():
    generator = random.Random(7)
    salts = [1, 2, 3, 4, 5, 6, 7, 9, 14, 15, 16, 18, 19, 21, 22, 24]
    for _ in range(2000):
        seed = generator.getrandbits(generator.choice([1, 8, 32, 64]))
        t = generator.choice([generator.uniform(-1e6, 1e6), generator.uniform(0, 1.6e9), 0.0, 45.0, 90.0])
        count = generator.randint(1, 27)
        every = generator.choice([3.2, 5, 6, 9, 10, 12, 20, 40, 45])
        salt = generator.choice(salts)
        index, phase = choose(seed, t, count, every, salt)
        print(seed, repr(t), count, repr(every), salt, index, repr(phase))


main()
