#!/usr/bin/env python3
"""Learns word lists from CoNLL-U treebanks (Sejong or KAIST tags).

Writes into OUT (default knowledge-src/learned) the words that the treebanks
tag as one morpheme of an open class, each seen in at least two sentences:

  nng.dic  common nouns of two syllables or more (NNG, NNP; ncn, ncpa,
           ncps, nq), so that compound division knows the elements
  ma.dic   adverbs (MAG, MAJ; mag, maj, mad)
  vv.dic   verb stems (VV; pvg, pvd)
  va.dic   adjective stems (VA; paa, pad)
  split.txt  words that the treebanks write as a run of nouns, or as a noun
           and a noun suffix (본격+적, 선생+님), and never as one noun: the
           build stores them with their division, so that the analyzer
           divides them as the treebanks do. Line: word TAB division, a
           digit per noun piece (its syllables) and a Y per syllable of a
           suffix: 국제사회 22, 본격적 2Y.
  suffix.txt  noun suffixes that the treebanks divide from the noun before
           them in nine cases of ten or more (적, 님): the build divides
           every known noun made of a noun and such a suffix likewise.
  preanal.sys.dic  eojuls of one token (no mark attached) that the
           treebanks read one way in nine uses of ten or more, with that
           reading in the analyzer's tag names, a josa chain as one josa.

Only words and their readings are written, with no count, context or
sentence.
Usage: learn_lexicon.py [--out DIR] [--min-sentences N] FILE.conllu...
"""
import argparse
import collections
import os
import re
import sys

HANGUL = re.compile('^[가-힣]+$')

# Corpus tags of each learned class; KAIST tags are in lower case.
CLASSES = {
    'nng.dic': {'NNG', 'NNP', 'ncn', 'ncpa', 'ncps', 'nq'},
    'ma.dic': {'MAG', 'MAJ', 'mag', 'maj', 'mad'},
    'vv.dic': {'VV', 'pvg', 'pvd'},
    'va.dic': {'VA', 'paa', 'pad'},
}
NOUN_TAGS = CLASSES['nng.dic']
SUFFIX_TAGS = {'XSN', 'xsn'}
HEADER = ('; Learned from the UD Korean GSD and Kaist treebanks (CC BY-SA 4.0,\n'
          '; see NOTICE) by tools/learn_lexicon.py: words seen in at least\n'
          '; {min} sentences. Regenerate with scripts/learn_knowledge.sh.\n')


def sentences(path):
    """Yields the tokens (surface, morphemes as (form, tag), space after)
    of each sentence; a token whose lemmas and tags don't pair up has no
    morphemes."""
    tokens = []
    with open(path, encoding='utf-8') as f:
        for raw in f:
            line = raw.rstrip('\n').rstrip('\r')
            if not line:
                if tokens:
                    yield tokens
                tokens = []
                continue
            if line.startswith('#'):
                continue
            fields = line.split('\t')
            if len(fields) < 10 or '-' in fields[0] or '.' in fields[0]:
                continue
            lemma = fields[2]
            for item in fields[9].split('|'):
                if item.startswith('OrigLemma='):
                    lemma = item[len('OrigLemma='):]
            tags = fields[4].split('+')
            forms = [lemma] if len(tags) == 1 else lemma.split('+')
            morphemes = list(zip(forms, tags)) if len(forms) == len(tags) else []
            tokens.append((fields[1], morphemes, 'SpaceAfter=No' not in fields[9]))
    if tokens:
        yield tokens


def noun_runs(morphemes):
    """The runs of two or more Hangul nouns (with noun suffixes behind a
    noun) in a token's morphemes, as lists of (form, is_suffix)."""
    runs, run = [], []
    for form, tag in morphemes + [('', '')]:
        noun = tag in NOUN_TAGS and HANGUL.match(form)
        suffix = tag in SUFFIX_TAGS and run and HANGUL.match(form)
        if noun or suffix:
            run.append((form, not noun))
            continue
        if len(run) >= 2:
            runs.append(run)
        run = []
    return runs


def division(run):
    """The stored division of a run of (form, is_suffix) pieces, or None
    when a piece is too long to be written."""
    text = ''
    for form, suffix in run:
        if suffix:
            text += 'Y' * len(form)
        elif len(form) <= 9:
            text += str(len(form))
        else:
            return None
    return text


# The names of the analyzer's tags for the corpus tags, as tools/treebank.h
# maps them (knowledge-src/README.md); a pre-analysis entry is written only
# when every tag of it has one.
SYSTEM_TAGS = {
    'NNG': 'NNG', 'NNP': 'NNP', 'NNB': 'NNB', 'NR': 'NU', 'NP': 'NP',
    'XR': 'NNG', 'VV': 'VV', 'VA': 'VA', 'VX': 'VX', 'VCP': 'VC', 'VCN': 'VA',
    'MM': 'MM', 'MAG': 'MAG', 'MAJ': 'MAJ', 'IC': 'IC', 'JKS': 'JK',
    'JKC': 'JK', 'JKG': 'JKG', 'JKO': 'JK', 'JKB': 'JK', 'JKV': 'JK',
    'JKQ': 'JK', 'JX': 'JX', 'JC': 'JC', 'EP': 'EP', 'EF': 'EF', 'EC': 'EC',
    'ETN': 'ETN', 'ETM': 'ETM', 'XPN': 'XP', 'XSN': 'XSN', 'XSV': 'XSV',
    'XSA': 'XSA',
    'ncn': 'NNG', 'ncpa': 'NNG', 'ncps': 'NNG', 'ncr': 'NNG', 'nq': 'NNP',
    'nbn': 'NNB', 'nbs': 'NNB', 'nbu': 'NNB', 'npp': 'NP', 'npd': 'NP',
    'nnc': 'NU', 'nno': 'NU', 'pvg': 'VV', 'pvd': 'VV', 'paa': 'VA',
    'pad': 'VA', 'px': 'VX', 'jp': 'VC', 'mma': 'MM', 'mmd': 'MM',
    'mag': 'MAG', 'mad': 'MAG', 'maj': 'MAJ', 'ii': 'IC', 'jcs': 'JK',
    'jcc': 'JK', 'jco': 'JK', 'jca': 'JK', 'jcv': 'JK', 'jcr': 'JK',
    'jcm': 'JKG', 'jxc': 'JX', 'jxf': 'JX', 'jxt': 'JX', 'jcj': 'JC',
    'jct': 'JC', 'ep': 'EP', 'ef': 'EF', 'ecc': 'EC', 'ecs': 'EC',
    'ecx': 'EC', 'etn': 'ETN', 'etm': 'ETM', 'xp': 'XP', 'xsn': 'XSN',
    'xsv': 'XSV', 'xsm': 'XSA', 'xsa': 'XSA',
}
# An eojul gets a pre-analysis entry when one analysis has this share of
# its uses, in at least MIN sentences.
PREANALYSIS_SHARE = 0.9


JOSA_NAMES = {'JK', 'JKG', 'JX', 'JC', 'J_'}


def analysis_text(morphemes):
    """form/TAG+... in the analyzer's tag names, or None. A run of josa is
    one morpheme, as the analyzer writes a josa chain (에서의/J_)."""
    parts = []
    for form, tag in morphemes:
        name = SYSTEM_TAGS.get(tag)
        if name is None or not form or '+' in form or '/' in form or '@' in form:
            return None
        if name in JOSA_NAMES and parts and parts[-1][1] in JOSA_NAMES:
            parts[-1] = (parts[-1][0] + form, 'J_')
        else:
            parts.append((form, name))
    return '+'.join(form + '/' + name for form, name in parts)


# A suffix is divided when the treebanks divide it this often, in at least
# this many words.
SUFFIX_SHARE = 0.9
SUFFIX_MIN_WORDS = 10


def learn(paths, min_sentences):
    """(lists by file name, divisions by word, divided suffixes)."""
    seen = collections.defaultdict(set)       # (file, word) -> sentences
    whole = collections.defaultdict(set)      # a noun as one morpheme
    divided = collections.defaultdict(set)    # word -> sentences
    pieces = collections.defaultdict(collections.Counter)
    suffix_words = collections.defaultdict(set)  # suffix -> divided words
    analyses = collections.defaultdict(collections.Counter)  # eojul -> uses
    eojul_sentences = collections.defaultdict(set)
    number = 0
    for path in paths:
        for tokens in sentences(path):
            number += 1
            for index, (surface, morphemes, _) in enumerate(tokens):
                alone = ((index == 0 or tokens[index - 1][2]) and tokens[index][2])
                if alone and HANGUL.match(surface) and morphemes:
                    analyses[surface][analysis_text(morphemes)] += 1
                    eojul_sentences[surface].add(number)
            for _, morphemes, _ in tokens:
                for form, tag in morphemes:
                    if not HANGUL.match(form):
                        continue
                    for name, tags in CLASSES.items():
                        if tag in tags:
                            seen[(name, form)].add(number)
                    if tag in NOUN_TAGS:
                        whole[form].add(number)
                for run in noun_runs(morphemes):
                    word = ''.join(form for form, _ in run)
                    divided[word].add(number)
                    pieces[word][division(run)] += 1
                    for (stem, _), (form, suffix) in zip(run, run[1:]):
                        if suffix:
                            suffix_words[form].add(stem + form)
    lists = collections.defaultdict(list)
    for (name, word), where in sorted(seen.items()):
        if len(where) < min_sentences:
            continue
        if name == 'nng.dic' and len(word) < 2:
            continue
        lists[name].append(word)
    splits = {}
    for word, where in sorted(divided.items()):
        text = pieces[word].most_common(1)[0][0]
        if len(where) >= min_sentences and len(whole[word]) == 0 and text:
            splits[word] = text
    # A suffix word written whole counts against the suffix.
    suffixes = []
    for suffix, words in sorted(suffix_words.items()):
        kept = {w for w in whole if w.endswith(suffix) and len(w) > len(suffix)
                and w[:-len(suffix)] in whole}
        if (len(words) >= SUFFIX_MIN_WORDS and
                len(words) >= SUFFIX_SHARE * (len(words) + len(kept - words))):
            suffixes.append(suffix)
    preanalysis = {}
    for eojul, uses in sorted(analyses.items()):
        text, count = uses.most_common(1)[0]
        if (text and len(eojul_sentences[eojul]) >= min_sentences and
                count >= PREANALYSIS_SHARE * sum(uses.values())):
            preanalysis[eojul] = text
    lists['preanal.sys.dic'] = ['%s\t%s' % item for item in sorted(preanalysis.items())]
    return lists, splits, suffixes


def write(out, lists, splits, suffixes, min_sentences):
    os.makedirs(out, exist_ok=True)
    header = HEADER.format(min=min_sentences)
    for name in list(CLASSES) + ['preanal.sys.dic']:
        with open(os.path.join(out, name), 'w', encoding='utf-8') as f:
            f.write(header)
            for word in lists.get(name, []):
                f.write(word + '\n')
    with open(os.path.join(out, 'split.txt'), 'w', encoding='utf-8') as f:
        f.write(header)
        for word, text in sorted(splits.items()):
            f.write('%s\t%s\n' % (word, text))
    with open(os.path.join(out, 'suffix.txt'), 'w', encoding='utf-8') as f:
        f.write(header)
        for suffix in suffixes:
            f.write(suffix + '\n')


def missing_treebank(program, paths):
    """True, with a message, when one of `paths` is no file."""
    for path in paths:
        if not os.path.exists(path):
            print('%s: no treebank at %s' % (program, path), file=sys.stderr)
            return True
    return False


def main(argv):
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--out', default=os.path.join(root, 'knowledge-src', 'learned'))
    parser.add_argument('--min-sentences', type=int, default=2)
    parser.add_argument('treebanks', nargs='+')
    args = parser.parse_args(argv)
    if missing_treebank('learn_lexicon', args.treebanks):
        return 1
    lists, splits, suffixes = learn(args.treebanks, args.min_sentences)
    write(args.out, lists, splits, suffixes, args.min_sentences)
    print('learn_lexicon: %s; %d divided words; divided suffixes %s; written to %s' % (
        ', '.join('%s %d' % (n, len(lists.get(n, []))) for n in CLASSES),
        len(splits), ' '.join(suffixes), args.out))
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
