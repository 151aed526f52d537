#!/usr/bin/env python3
"""Generates text/syllable_data.inc, the records of SyllableTable.

Source: the published CP949 mapping, as Python's 'cp949' codec holds it.
Each two-byte code of the Hangul rows gets one record: the letters of its
syllable as 5-bit Johab values, the rule bits and the 25 links (record
numbers) that the predicate analysis follows to undo sound changes. Codes in
a row's span that are not syllables get a blank record.

Usage: python3 tools/gen_syllables.py > text/syllable_data.inc
"""

import sys

COUNT = 12078
NO_LINK = -1

# Row bands: (first lead, last lead, first trail, records per row, first record).
ROW_BANDS = [
    (0x81, 0xA0, 0x41, 190, 0),
    (0xA1, 0xAF, 0x41, 96, 6080),
    (0xB0, 0xC6, 0x41, 190, 7520),
    (0xC7, 0xC7, 0xA1, 94, 11890),
    (0xC8, 0xC8, 0xA1, 94, 11984),
]

# Johab 5-bit values in the order of the Unicode letter indexes.
CHOSEONG = "ㄱㄲㄴㄷㄸㄹㅁㅂㅃㅅㅆㅇㅈㅉㅊㅋㅌㅍㅎ"
CHO_JOHAB = [2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20]
JUNGSEONG = "ㅏㅐㅑㅒㅓㅔㅕㅖㅗㅘㅙㅚㅛㅜㅝㅞㅟㅠㅡㅢㅣ"
JUNG_JOHAB = [3, 4, 5, 6, 7, 10, 11, 12, 13, 14, 15, 18, 19, 20, 21, 22, 23,
              26, 27, 28, 29]
JONGSEONG = "ㄱㄲㄳㄴㄵㄶㄷㄹㄺㄻㄼㄽㄾㄿㅀㅁㅂㅄㅅㅆㅇㅈㅊㅋㅌㅍㅎ"
JONG_JOHAB = [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 19,
              20, 21, 22, 23, 24, 25, 26, 27, 28, 29]   # first: no final

NONE = ""          # no final, in the letter sets below
ALL_INITIALS = CHOSEONG
GRMO = "ㄱㄹㅁㅇ"   # initials of the ㅎ-final adjective stems


def decompose(ch):
    """(initial, vowel, final) letters of a syllable; final '' for none."""
    i = ord(ch) - 0xAC00
    return (CHOSEONG[i // 588], JUNGSEONG[i // 28 % 21],
            "" if i % 28 == 0 else JONGSEONG[i % 28 - 1])


def compose(cho, jung, jong=""):
    jong_index = 0 if jong == "" else JONGSEONG.index(jong) + 1
    return chr(0xAC00 + (CHOSEONG.index(cho) * 21 + JUNGSEONG.index(jung)) * 28
               + jong_index)


def johab(ch):
    cho, jung, jong = decompose(ch)
    return (CHO_JOHAB[CHOSEONG.index(cho)], JUNG_JOHAB[JUNGSEONG.index(jung)],
            1 if jong == "" else JONG_JOHAB[JONGSEONG.index(jong) + 1])


def finals(*letters):
    """A set of finals; NONE stands for the syllable without one."""
    return set(letters)


def general(initials, vowels, final_set, target):
    """A rule over letter classes: target(cho, jung, jong) gives the link."""
    def rule(ch):
        cho, jung, jong = decompose(ch)
        if cho in initials and jung in vowels and jong in final_set:
            return target(cho, jung, jong)
        return None
    return rule


def listed(mapping):
    """A rule over named syllables: mapping from syllable to its link."""
    def rule(ch):
        return mapping.get(ch)
    return rule


def either(*rules):
    def rule(ch):
        for r in rules:
            found = r(ch)
            if found is not None:
                return found
        return None
    return rule


def mark(syllables):
    """A bit with no link: the rule answers True for its syllables."""
    return lambda ch: True if ch in syllables else None


PAIR_VOWEL = {"ㅏ": "ㅓ", "ㅓ": "ㅏ", "ㅑ": "ㅕ", "ㅕ": "ㅑ"}
TO_PLAIN_VOWEL = {"ㅐ": "ㅏ", "ㅒ": "ㅑ", "ㅔ": "ㅓ", "ㅖ": "ㅕ"}
NO_FINAL_OR_SS = finals(NONE, "ㅆ")

# (bit, link slot or None, rule). Applied in this order.
RULES = [
    (0, 0, lambda ch: compose(*decompose(ch)[:2]) if decompose(ch)[2] else None),
    (1, 1, either(
        general(ALL_INITIALS, "ㅏㅐㅓㅕㅗㅜㅡㅣ", finals(NONE),
                lambda c, v, f: compose(c, v, "ㅅ")),
        listed({"얘": "옇", "럐": "렿", "먜": "몋",
                "게": "갛", "레": "랗", "메": "맣", "예": "얗"}))),
    (2, 2, general(ALL_INITIALS, "ㅏㅓㅕㅗㅜㅡㅣ", finals("ㄹ"),
                   lambda c, v, f: compose(c, v, "ㄷ"))),
    (3, 3, either(
        lambda ch: None if ch == "지" else general(
            ALL_INITIALS, "ㅏㅐㅓㅕㅗㅚㅜㅟㅡㅣ", finals(NONE),
            lambda c, v, f: compose(c, v, "ㅂ"))(ch),
        listed({"런": "럽", "럴": "럽"}))),
    (4, 4, listed(dict([(s, "르") for s in "라랐러렀"] +
                       [(s, compose(*decompose(s)[:2], "ㅂ"))
                        for s in "래려로뢰루뤼르리"]))),
    (5, 5, listed({"여": "아", "였": "았"})),
    (6, 6, listed({"러": "어", "렀": "었"})),
    (7, 7, listed({"거": "아", "너": "아"})),
    (8, 8, either(
        general(GRMO, "ㅐㅒㅔㅖ", NO_FINAL_OR_SS,
                lambda c, v, f: compose(c, TO_PLAIN_VOWEL[v], "ㅎ")),
        listed({"놔": "놓", "놨": "놓"}))),
    (9, 9, either(
        general(GRMO, "ㅏㅑㅓㅕ", finals(NONE, "ㄴ", "ㄹ", "ㅁ", "ㅂ"),
                lambda c, v, f: compose(c, v, "ㅎ")),
        listed({"단": "닿"}))),
    (10, 10, general(ALL_INITIALS, "ㅐ", NO_FINAL_OR_SS,
                     lambda c, v, f: compose(c, "ㅓ"))),
    (11, 11, general(ALL_INITIALS, "ㅏㅓ", NO_FINAL_OR_SS,
                     lambda c, v, f: compose(c, "ㅡ"))),
    (12, 12, general(ALL_INITIALS, "ㅏㅓㅕㅗㅘㅙㅜㅡㅣ",
                     finals(NONE, "ㄴ", "ㄹ", "ㄻ", "ㅁ", "ㅂ"),
                     lambda c, v, f: compose(c, v, "ㄹ"))),
    (13, 13, listed({"퍼": "푸", "펐": "푸"})),
    (14, 14, general(ALL_INITIALS, "ㅏㅓㅕ", NO_FINAL_OR_SS,
                     lambda c, v, f: compose(c, v))),
    (15, 15, general(ALL_INITIALS, "ㅐㅔ", NO_FINAL_OR_SS,
                     lambda c, v, f: compose(c, v))),
    (16, 16, general(ALL_INITIALS, "ㅘㅝ", NO_FINAL_OR_SS,
                     lambda c, v, f: compose(c, {"ㅘ": "ㅗ", "ㅝ": "ㅜ"}[v]))),
    (17, 17, general(ALL_INITIALS, "ㅙ", NO_FINAL_OR_SS,
                     lambda c, v, f: compose(c, "ㅚ"))),
    (18, 18, general(ALL_INITIALS, "ㅕ", NO_FINAL_OR_SS,
                     lambda c, v, f: compose(c, "ㅣ"))),
    (19, 19, general(ALL_INITIALS, "ㅚ", finals(NONE),
                     lambda c, v, f: compose(c, "ㅗ"))),
    (20, 20, general(ALL_INITIALS, "ㅢ", finals(NONE),
                     lambda c, v, f: compose(c, "ㅡ"))),
    (21, 21, listed({"해": "하", "했": "하"})),
    (22, 22, listed({"치": "하"})),
    (23, 23, listed({"케": "하"})),
    (24, None, mark("서")),
    (25, None, mark("야")),
    (26, 24, general(GRMO, "ㅏㅑㅓㅕ", finals("ㅎ"),
                     lambda c, v, f: compose(c, PAIR_VOWEL[v], f))),
    (27, None, mark("요")),
]


def layout():
    """Yields (record number, lead, trail) for every record, in order."""
    for first_lead, last_lead, first_trail, per_row, first_record in ROW_BANDS:
        for lead in range(first_lead, last_lead + 1):
            base = first_record + per_row * (lead - first_lead)
            for k in range(per_row):
                yield base + k, lead, first_trail + k


def syllable_of(lead, trail):
    try:
        ch = bytes([lead, trail]).decode("cp949")
    except UnicodeDecodeError:
        return None
    return ch if len(ch) == 1 and 0xAC00 <= ord(ch) <= 0xD7A3 else None


def build():
    codes = []        # (lead, trail, syllable or None) by record number
    number_of = {}    # syllable -> record number
    for number, lead, trail in layout():
        assert number == len(codes)
        ch = syllable_of(lead, trail)
        codes.append((lead, trail, ch))
        if ch is not None:
            assert ch not in number_of
            number_of[ch] = number
    assert len(codes) == COUNT, len(codes)
    assert len(number_of) == 11172, len(number_of)

    lines = []
    for number, (lead, trail, ch) in enumerate(codes):
        if (number == 0 or codes[number - 1][0] != lead):
            lines.append("// lead 0x%02X, record %d" % (lead, number))
        if ch is None:
            lines.append(record_line((0, 0), (0, 0, 0), 0, [NO_LINK] * 25))
            continue
        flags = 0
        links = [NO_LINK] * 25
        for bit, slot, rule in RULES:
            target = rule(ch)
            if target is None:
                continue
            flags |= 1 << bit
            if slot is not None:
                links[slot] = number_of[target]
        lines.append(record_line((lead, trail), johab(ch), flags, links))
    return lines


def record_line(code, letters, flags, links):
    return "{{0x%02X,0x%02X},0,%d,%d,%d,{0,0},0x%X,{%s},0}," % (
        code[0], code[1], letters[0], letters[1], letters[2], flags,
        ",".join(str(n) for n in links))


def main():
    out = sys.stdout
    out.write("// GENERATED by tools/gen_syllables.py from the published CP949 "
              "mapping (Python's 'cp949' codec); DO NOT EDIT\n")
    out.write("// Command: python3 tools/gen_syllables.py > "
              "text/syllable_data.inc\n")
    out.write("// One SyllableRec a line: code, spare, choseong, jungseong, "
              "jongseong, spare, flags, links 0..24, spare.\n")
    for line in build():
        out.write(line + "\n")


if __name__ == "__main__":
    main()
