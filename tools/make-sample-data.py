#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the example project's sample data, or checks what is on disk.

    tools/make-sample-data.py            writes "data/Sample Data"
    tools/make-sample-data.py --check    ends with 1 when a file there differs

24 synthetic subjects learn six blocked categories of ten words. The eleventh member of each category, the lure, is
never presented. Test 1 follows at once; tests 2 and 3 follow one another after the subject's interval.

A word has one strength per person, and every test adds its own noise to it, so the same words tend to come back. What
comes back also depends on the study position, on forgetting over the interval, and on having been recalled before.

The bytes must be the same on every machine and under every Python. So chance comes from Random.random() alone, numbers
are only added, subtracted, multiplied and divided (no exp or log, which differ in the last bit), and floats are never
given to sum(), whose rounding changed in Python 3.12.
"""

import argparse
import random
import sys
from pathlib import Path

SEED = 53
SUBJECTS = 24
TESTS = 3
CATEGORIES = 6
CATEGORY_SIZE = 11
ITEMS = CATEGORIES * CATEGORY_SIZE
STUDIED = CATEGORIES * (CATEGORY_SIZE - 1)
MINUTES = 7
MAX_RATING = 6
RATED_TEST = 3
VARIABLES = (("Experimenter", ("Joe", "Jane")), ("Interval", ("24 Hours", "1 Week", "2 Weeks")))

PRIMACY = (1.3, 0.9, 0.6, 0.4, 0.2)      # from the first word of the list on
RECENCY = (1.5, 1.2, 0.9, 0.6, 0.4, 0.2)  # from the last word of the list backwards
FORGETTING = (0.35, 0.75, 1.05)           # loss of strength by level of Interval

SAMPLE_DIRECTORY = Path(__file__).resolve().parent.parent / "data" / "Sample Data"


class Chance:
    """The few kinds of chance that the subjects need, all from Random.random()."""

    def __init__(self, seed):
        self._random = random.Random(seed).random

    def uniform(self, low, high):
        return low + (high - low) * self._random()

    def normal(self, deviation):
        """Nearly normal with mean 0: twelve uniform numbers have variance 1."""
        total = -6.0
        for _ in range(12):
            total += self._random()
        return total * deviation

    def shuffled(self, values):
        keyed = [(self._random(), value) for value in values]
        return [value for _, value in sorted(keyed)]

    def pick(self, values, weights):
        total = 0.0
        for weight in weights:
            total += weight
        rest = self._random() * total
        for value, weight in zip(values, weights):
            rest -= weight
            if rest < 0:
                return value
        return values[-1]


def is_lure(item):
    return item % CATEGORY_SIZE == 0


def category_of(item):
    return (item - 1) // CATEGORY_SIZE


def study_position(item):
    """1-based place in the presented list, which is item order without the lures."""
    return item - category_of(item)


class Person:
    def __init__(self, chance, interval):
        self.chance = chance
        self.ability = chance.normal(0.25)
        self.forgetting = FORGETTING[interval - 1] + chance.normal(0.08)
        self.lure_proneness = chance.normal(0.25)
        self.organisation = chance.uniform(5, 35)
        self.slowing = chance.uniform(1.8, 4.5)
        self.rating_bias = chance.normal(0.3)
        category_ease = [chance.normal(0.25) for _ in range(CATEGORIES)]
        self.strength = {item: category_ease[category_of(item)] + chance.normal(0.8) for item in range(1, ITEMS + 1)}
        self.lure_weeks = (0.1, 1.0, 2.0)[interval - 1]

    def word_strength(self, item, test, previous):
        position = study_position(item)
        strength = self.ability + self.strength[item] - 0.18
        if position <= len(PRIMACY):
            strength += PRIMACY[position - 1]
        if STUDIED - position < len(RECENCY):
            # The end of the list is still in mind on the immediate test only.
            strength += RECENCY[STUDIED - position] * (1.0 if test == 1 else 0.1)
        if test > 1:
            strength -= self.forgetting
            strength += 0.4 if item in previous else 0.0
        if test == 3:
            strength += 0.16  # a second attempt in one session brings up a little more
        return strength

    def lure_strength(self, item, test, previous, associates):
        """Gist outlives the words: the pull grows with the associates recalled, and fades less with time."""
        strength = -1.75 + 0.2 * associates + 0.5 * self.strength[item] + self.lure_proneness
        if test > 1:
            strength += 0.15 * self.lure_weeks
            strength += 0.9 if item in previous else 0.0
        return strength

    def recalled(self, test, previous):
        """What comes back on a test: item -> strength at that moment (lures included)."""
        found = {}
        for item in range(1, ITEMS + 1):
            if not is_lure(item):
                strength = self.word_strength(item, test, previous) + self.chance.normal(0.7)
                if strength > 0:
                    found[item] = strength
        for lure in range(CATEGORY_SIZE, ITEMS + 1, CATEGORY_SIZE):
            associates = len([item for item in found if category_of(item) == category_of(lure) and not is_lure(item)])
            strength = self.lure_strength(lure, test, previous, associates) + self.chance.normal(0.5)
            if strength > 0:
                found[lure] = strength
        return found

    def output_order(self, test, found, previous):
        """Words cue their category, their neighbours in the list and what followed them on the test before."""
        followers = dict(zip(previous, previous[1:]))
        order = []
        left = sorted(found)
        while left:
            weights = [self.cue(order, item, test, found, followers) for item in left]
            item = self.chance.pick(left, weights)
            order.append(item)
            left.remove(item)
        return order

    def cue(self, order, item, test, found, followers):
        weight = 0.5 + found[item]
        if not order:
            if study_position(item) <= 3:
                return weight * 8
            return weight * (10 if test == 1 and STUDIED - study_position(item) < 4 else 1)
        last = order[-1]
        if category_of(item) == category_of(last):
            weight *= self.organisation
            if is_lure(item):
                # A lure comes to mind once several of its associates have been written down.
                said = len([other for other in order if category_of(other) == category_of(item)])
                weight *= 0.1 * said
        elif is_lure(item):
            weight *= 0.05
        if not is_lure(item) and not is_lure(last):
            lag = study_position(item) - study_position(last)
            weight *= {1: 5.0, -1: 2.0, 2: 1.8, -2: 1.3}.get(lag, 1.0)
        if followers.get(last) == item:
            weight *= 2.5
        return weight

    def minutes(self, count):
        """Recall slows down: the share recalled by a fraction x of the time is x(1+a) / (1+ax)."""
        moments = []
        for _ in range(count):
            share = self.chance.uniform(0, 1)
            moments.append(share / (1 + self.slowing * (1 - share)))
        return [min(MINUTES, int(moment * MINUTES) + 1) for moment in sorted(moments)]

    def rating(self, item, strength):
        middle = 3.15 if is_lure(item) else 4.1
        value = middle + 0.75 * strength + self.rating_bias + self.chance.normal(1.0)
        return max(1, min(MAX_RATING, int(value + 0.5)))

    def test_lists(self):
        """Per test the list of (item, minute, rating) in recall order."""
        tests = []
        previous = []
        for test in range(1, TESTS + 1):
            found = self.recalled(test, previous)
            order = self.output_order(test, found, previous)
            minutes = self.minutes(len(order))
            ratings = [self.rating(item, found[item]) if test == RATED_TEST else 0 for item in order]
            tests.append(list(zip(order, minutes, ratings)))
            previous = order
        return tests


def subject_text(subject, levels, tests):
    lines = ['"Subject#","%d","n, Item #(recall order), Min(recall order), Rating(recall order)","*"' % subject]
    lines += ['"%s",%d' % (name, level) for (name, _), level in zip(VARIABLES, levels)]
    for entries in tests:
        padded = entries + [(0, 0, 0)] * (ITEMS - len(entries))
        lines += ["%d,%d,%d,%d" % (position, *entry) for position, entry in enumerate(padded, 1)]
    return lines


def project_text():
    lines = ['%d,%d,1,%d,%d,1,%d,,,1,%d,,%d,"Example","C:\\ZOVA\\Sample Data","(none)","Example.prm",1,,"VB Version"'
             % (TESTS, ITEMS, CATEGORIES, CATEGORY_SIZE, MINUTES, MAX_RATING, len(VARIABLES))]
    lines += [str(len(levels)) for _, levels in VARIABLES]
    for name, levels in VARIABLES:
        lines += ['"%s"' % text for text in (name, *levels)]
    lines += ['"Y"' if test == RATED_TEST else '"N"' for test in range(1, TESTS + 1)]
    return lines


def sample_files():
    """Path below the sample directory -> bytes."""
    chance = Chance(SEED)
    cells = [(joe_or_jane, interval) for joe_or_jane in (1, 2) for interval in (1, 2, 3)]
    assigned = []
    while len(assigned) < SUBJECTS:  # block randomisation: every six subjects fill every cell once
        assigned += chance.shuffled(cells)
    files = {"Example.prm": project_text()}
    for subject, levels in enumerate(assigned, 1):
        tests = Person(chance, levels[1]).test_lists()
        files["Sdata/Example Sub#%d.dat" % subject] = subject_text(subject, levels, tests)
    return {name: "".join(line + "\r\n" for line in lines).encode("ascii") for name, lines in files.items()}


def differences(files):
    found = []
    for name, content in files.items():
        path = SAMPLE_DIRECTORY / name
        if not path.is_file():
            found.append("missing: %s" % path)
        elif path.read_bytes() != content:
            found.append("differs: %s" % path)
    for path in sorted((SAMPLE_DIRECTORY / "Sdata").glob("*")):
        if "Sdata/" + path.name not in files:
            found.append("not of the sample: %s" % path)
    return found


def main():
    parser = argparse.ArgumentParser(description="Makes the example project's sample data.")
    parser.add_argument("--check", action="store_true", help="compare with what is on disk instead of writing")
    arguments = parser.parse_args()
    files = sample_files()
    if arguments.check:
        faults = differences(files)
        for fault in faults:
            print(fault, file=sys.stderr)
        return 1 if faults else 0
    for name, content in files.items():
        path = SAMPLE_DIRECTORY / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    return 0


if __name__ == "__main__":
    sys.exit(main())
