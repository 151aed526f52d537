#!/usr/bin/env python3
"""Turns the Korean Hunspell dictionary into word lists of the knowledge base.

Reads ko_KR.dic and ko_KR.aff (Debian's hunspell-ko package keeps them in
/usr/share/hunspell; the words and affixes are stored as decomposed jamo and
are composed here with NFC) and writes UTF-8 lists in the source format of
knowledge-src/: nng.dic, np.dic, nnb.dic, nu.dic, vv.dic, va.dic, vx.dic and
ma.dic. Predicates are written as stems without 다, followed by a TAB and
their conjugation class (the loaders ignore that text; it is kept so that a
reader sees which stems are irregular).

Word classes, as the affix file of that dictionary marks them (numeric flags,
given through AF aliases):
  2 noun (takes josa), 6 pronoun, 13 counter or unit after a number,
  23 to 29 numerals (24 to 27 the units 십, 백, 천, 만 and above),
  12 digit, 16 Latin letter (not imported),
  18, 20, 22 the second part of an auxiliary construction (보다 after -어,
  척하다 after -ㄴ, 만하다 after -ㄹ): an auxiliary predicate,
  540 alone: an adverb (takes only the particles 도, 만, 은/는),
  the ONLYINCOMPOUND flag: inflected compound parts (not imported),
  the FORBIDDENWORD flag: known misspellings (not imported).
A word with the suffix flags of endings is a predicate; it is a verb when its
affixes make the present declarative 는다/ㄴ다, else an adjective. Words
without flags (determiner uses of -적 words, interjections, names) are left
out: their class can't be told.

Usage: import_hunspell_ko.py [--dic FILE] [--aff FILE] --out DIR
"""
import argparse
import collections
import os
import re
import sys
import unicodedata

NOUN, PRONOUN, COUNTER = 2, 6, 13
NUMERALS = range(23, 30)
NUMERAL_UNITS = {24, 25, 26, 27}
AUXILIARY = {18, 20, 22}
ADVERB_ONLY = {540}

# Conjugation classes, told by how a rule of the word's flags rewrites the
# end of the dictionary form (strip, first jamo added): decomposed jamo.
IRREGULAR = [
    ('ᆮ다', 'ᆯ', 'ㄷ'),
    ('ᆸ다', '우', 'ㅂ'), ('ᆸ다', '워', 'ㅂ'), ('ᆸ다', '와', 'ㅂ'),
    ('ᆺ다', '으', 'ㅅ'), ('ᆺ다', '어', 'ㅅ'), ('ᆺ다', '아', 'ㅅ'),
    ('ᇂ다', 'ᅢ', 'ㅎ'), ('ᇂ다', 'ᅤ', 'ㅎ'), ('ᇂ다', 'ᅦ', 'ㅎ'),
    ('르다', 'ᆯ러', '르'), ('르다', 'ᆯ라', '르'),
    ('ᅮ다', 'ᅥ', '우'),
    ('다', '렀', '러'),
]
IRREGULAR = [(unicodedata.normalize('NFD', end), unicodedata.normalize('NFD', first), name)
             for end, first, name in IRREGULAR]
# What a verb's present declarative adds after the stem.
PRESENT = {unicodedata.normalize('NFD', t) for t in ('는다', 'ᆫ다')}


def telling(strip, add):
    """True for a rule that tells a verb or a conjugation class."""
    if add in PRESENT:
        return True
    return any(strip.endswith(end) and add.startswith(first)
               for end, first, _ in IRREGULAR)


def nfc(text):
    return unicodedata.normalize('NFC', text)


def nfd(text):
    return unicodedata.normalize('NFD', text)


class Affixes:
    """The parts of an affix file that the importer reads."""

    def __init__(self, lines):
        self.aliases = [None]  # AF aliases are numbered from 1
        self.rules = collections.defaultdict(list)  # flag -> (strip, add, re)
        self.suffix_flags = set()  # flags that carry any suffix rule
        self.only_in_compound = None
        self.forbidden = None
        seen_af_count = False
        for raw in lines:
            parts = raw.split()
            if not parts or parts[0].startswith('#'):
                continue
            key = parts[0]
            if key == 'AF' and len(parts) >= 2:
                if not seen_af_count:
                    seen_af_count = True  # the first AF line is the count
                    continue
                self.aliases.append(parts[1])
            elif key == 'ONLYINCOMPOUND' and len(parts) >= 2:
                self.only_in_compound = int(parts[1])
            elif key == 'FORBIDDENWORD' and len(parts) >= 2:
                self.forbidden = int(parts[1])
            elif key == 'SFX' and len(parts) >= 5:
                flag = int(parts[1])
                self.suffix_flags.add(flag)
                strip = nfd('' if parts[2] == '0' else parts[2])
                add = parts[3].split('/')[0]
                add = nfd('' if add == '0' else add)
                if telling(strip, add):
                    self.rules[flag].append((strip, add, Condition(nfd(parts[4]))))

    def flags(self, text):
        """The flag numbers of a .dic entry's flag field."""
        if not text:
            return set()
        if len(self.aliases) > 1 and text.isdigit():
            index = int(text)
            if 0 < index < len(self.aliases):
                text = self.aliases[index]
        return {int(f) for f in text.split(',') if f.strip().isdigit()}


def Condition(pattern):
    """A Hunspell SFX condition as a regular expression on the word's end."""
    if pattern == '.':
        return re.compile('')
    regex = ''
    i = 0
    while i < len(pattern):
        c = pattern[i]
        if c == '[':
            j = pattern.index(']', i)
            body = pattern[i + 1:j]
            neg = body.startswith('^')
            if neg:
                body = body[1:]
            regex += '[' + ('^' if neg else '') + re.escape(body) + ']'
            i = j + 1
        else:
            regex += '.' if c == '.' else re.escape(c)
            i += 1
    return re.compile('(?:' + regex + ')$')


def applicable(affixes, flags, word):
    """(strip, add) of every suffix rule of `flags` that applies to word."""
    for flag in flags:
        for strip, add, cond in affixes.rules.get(flag, ()):
            if word.endswith(strip) and cond.search(word):
                yield strip, add


def predicate_class(affixes, flags, word):
    """('VV' or 'VA', conjugation class) of a predicate in decomposed form."""
    is_verb = False
    cls = ''
    for strip, add in applicable(affixes, flags, word):
        if add in PRESENT:
            is_verb = True
        for end, first, name in IRREGULAR:
            if strip.endswith(end) and add.startswith(first) and not cls:
                cls = name
    return ('VV' if is_verb else 'VA'), cls


def classify(affixes, word, flags):
    """The (file, line) pairs that one dictionary word gives."""
    out = []
    if affixes.only_in_compound in flags or affixes.forbidden in flags:
        return out
    composed = nfc(word)
    if not re.fullmatch('[가-힣]+', composed):
        return out
    if flags and flags <= ADVERB_ONLY:
        return [('ma.dic', composed)]
    numeral = flags & set(NUMERALS)
    if numeral:
        unit = '1' if numeral & NUMERAL_UNITS else '0'
        return [('nu.dic', composed + '\t' + unit)]
    if PRONOUN in flags:
        return [('np.dic', composed)]
    if COUNTER in flags:
        out.append(('nnb.dic', composed + '\t1'))
    elif NOUN in flags:
        out.append(('nng.dic', composed))
    if composed.endswith('다') and len(composed) >= 2 and (
            flags & affixes.suffix_flags):
        stem = composed[:-1]
        tag, cls = predicate_class(affixes, flags, word)
        if composed.endswith('없다'):
            tag = 'VA'
        line = stem + ('\t' + cls if cls else '')
        out.append(('vv.dic' if tag == 'VV' else 'va.dic', line))
        if composed.endswith('있다') and tag == 'VA':
            out.append(('vv.dic', line))
        if flags & AUXILIARY:
            out.append(('vx.dic', stem))
    return out


def read_lines(path):
    with open(path, encoding='utf-8', errors='replace') as f:
        return f.read().split('\n')


def convert(dic_path, aff_path):
    """Maps each output file name to its sorted, distinct lines."""
    affixes = Affixes(read_lines(aff_path))
    result = collections.defaultdict(set)
    lines = read_lines(dic_path)
    for raw in lines[1:]:  # the first line is the word count
        raw = raw.strip()
        if not raw:
            continue
        word, _, flag_text = raw.partition('/')
        for name, line in classify(affixes, word, affixes.flags(flag_text)):
            result[name].add(line)
    return {name: sorted(lines) for name, lines in result.items()}


HEADER = ('; GENERATED by tools/import_hunspell_ko.py from {source}; DO NOT EDIT\n'
          '; python3 tools/import_hunspell_ko.py --dic {dic} --aff {aff} --out DIR\n')


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--dic', default='/usr/share/hunspell/ko_KR.dic')
    parser.add_argument('--aff', default='/usr/share/hunspell/ko_KR.aff')
    parser.add_argument('--out', required=True)
    args = parser.parse_args(argv)
    if not (os.path.exists(args.dic) and os.path.exists(args.aff)):
        print('import_hunspell_ko: no dictionary at %s' % args.dic, file=sys.stderr)
        return 1
    lists = convert(args.dic, args.aff)
    os.makedirs(args.out, exist_ok=True)
    header = HEADER.format(source='the Korean Hunspell dictionary (hunspell-ko)',
                           dic=args.dic, aff=args.aff)
    for name, lines in sorted(lists.items()):
        with open(os.path.join(args.out, name), 'w', encoding='utf-8') as f:
            f.write(header)
            f.write('\n'.join(lines) + '\n')
        print('import_hunspell_ko: %s %d words' % (name, len(lines)))
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
