#!/usr/bin/env python3
"""Builds the knowledge directory from knowledge-src/.

Checks every line of the UTF-8 sources in knowledge-src/, adds the word lists
that tools/import_hunspell_ko.py makes from the Korean Hunspell dictionary
(when it is installed), and writes the CP949 source dictionaries under their
fixed names, preanal.sys.dic and the folder sinfo/ to the output directory.
With --train it learns the statistical knowledge (the compound-noun
frequencies and the tagger's sinfo/ frequency files) from Sejong-tagged
CoNLL-U treebanks with the qrl_train tool; without it the knowledge has none
of these files and tagging mode 1 decides by its rules alone. With
--compiler (the qrl_compile tool) it also writes the compiled qrl.klg.

Usage: build_knowledge.py [--src DIR] [--out DIR] [--compiler PATH]
                          [--train FILE.conllu [--trainer PATH]]...
                          [--hunspell-dic FILE --hunspell-aff FILE | --no-hunspell]
Exit status 0, or 1 when a source line is malformed (each one is listed).
"""
import argparse
import os
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
SRC = os.path.join(os.path.dirname(HERE), 'knowledge-src')
HUNSPELL_DIC = '/usr/share/hunspell/ko_KR.dic'
HUNSPELL_AFF = '/usr/share/hunspell/ko_KR.aff'
sys.path.insert(0, HERE)
import import_hunspell_ko  # noqa: E402

# The tag names that the POS table knows; any other name would load as 0.
TAGS = {
    'EC', 'EF', 'EM', 'EP', 'ETM', 'ETN', 'E_', 'FL', 'IC', 'JC', 'JK', 'JKG',
    'JX', 'J_', 'MA', 'MAG', 'MAJ', 'MM', 'NFG', 'NFU', 'NNB', 'NNC', 'NNG',
    'NNI', 'NNP', 'NNR', 'NNU', 'NP', 'NU', 'N_', 'SC', 'SN', 'SNC', 'SND',
    'UW', 'VA', 'VC', 'VV', 'VX', 'V_', 'XP', 'XSA', 'XSD', 'XSN', 'XSV',
}
EOMI_TAGS = {'EC', 'EF', 'EM', 'EP', 'ETM', 'ETN', 'E_'}
JOSA_TAGS = {'JC', 'JK', 'JKG', 'JX', 'J_'}
EOMI_TYPES = {0, 5, 9, 17, 19}
# The jamo that a fused ending of each type begins with.
FUSED_JAMO = {5: 'ㄴ', 9: 'ㄹ', 17: 'ㅁ', 19: 'ㅂ'}

ENDING_FILES = ['em.dic', 'js.dic']
# Main word files; those whose second column is required.
MAIN_FILES = ['nnb.dic', 'nng.dic', 'np.dic', 'nni.dic', 'nnp.dic', 'nu.dic',
              'vv.dic', 'va.dic', 'ma.dic', 'mm.dic', 'ic.dic', 'vx.dic']
WITH_TEXT = {'nnb.dic', 'nnp.dic', 'nu.dic'}
LIST_FILES = ['xp.dic', 'xsn.dic', 'xsnxsn.dic', 'conj.dic']
PREANALYSIS = 'preanal.sys.dic'
# The tagger's rule files, under sinfo/ both in the sources and the output.
GROUP_RULES = 'sinfo/grule.klg'
EOJUL_RULES = 'sinfo/erule.klg'
RULE_FILES = [GROUP_RULES, EOJUL_RULES]

HANGUL_WORD = re.compile('^@*[가-힣ㄱ-ㅎ]+$')
# A main-file line "!word" takes the word out of that file, whichever list
# brought it in: a rare reading that would outrank the common one (되 as a
# noun of measure beside the verb, 과 as a noun beside the josa).
REMOVE = '!'



def is_comment(line, main_family):
    """The loaders' comment rule: empty, or a first character of ; / space."""
    if not line:
        return True
    lead = ';/ \r\n' if main_family else ';/ '
    return line[0] in lead


def check_ending(line, is_josa):
    """None, or what is wrong with a line of em.dic or js.dic."""
    key, tab, readings = line.partition('\t')
    if not tab or not key:
        return 'no TAB after the key'
    if not re.fullmatch('[가-힣ㄱ-ㅎ]+', key):
        return 'the key is not Hangul'
    for reading in readings.split('#'):
        fields = reading.split(' ')
        if len(fields) not in (2, 3):
            return 'a reading needs form/TAG, attach and type: ' + reading
        form, slash, tag = fields[0].partition('/')
        if not slash or not form:
            return 'no form/TAG in ' + reading
        if tag not in (JOSA_TAGS if is_josa else EOMI_TAGS):
            return 'unknown tag ' + tag
        try:
            int(fields[1], 16)
            kind = int(fields[2], 16) if len(fields) == 3 else 0
        except ValueError:
            return 'attach and type are hexadecimal: ' + reading
        if not is_josa and kind not in EOMI_TYPES:
            return 'an ending type is 0, 5, 9, 11 (17) or 13 (19): ' + reading
        if not is_josa and kind in FUSED_JAMO and not form.startswith(FUSED_JAMO[kind]):
            return 'a fused ending of this type begins with ' + FUSED_JAMO[kind]
        if not is_josa and kind == 0 and form[0] in 'ㄴㄹㅁㅂ':
            return 'an ending that begins with a jamo is fused: give its type'
    return None


def check_main(line, name):
    if line.startswith(REMOVE):
        word = line[len(REMOVE):].strip()
        return None if re.fullmatch('[가-힣]+', word) else 'a word to remove: !word'
    parts = re.split('[\t ]', line, maxsplit=1)
    word = parts[0].strip()
    text = parts[1].strip() if len(parts) > 1 else ''
    if not HANGUL_WORD.match(word):
        return 'the word is not Hangul: ' + word
    if word.startswith('@') and name != 'nng.dic':
        return 'only nng.dic words may carry the @ mark'
    if name in WITH_TEXT and not text:
        return 'a composition text is required'
    if name in ('nnb.dic', 'nu.dic') and not text.isdigit():
        return 'the composition text is a number'
    return None


def check_list(line):
    return None if re.fullmatch('[가-힣]+', line.strip()) else 'a key alone'


def check_preanalysis(line):
    eojul, sep, analyses = line.partition('\t')
    if not sep or not eojul:
        return 'no TAB after the eojul'
    for alternative in analyses.split('@'):
        for morpheme in alternative.split('+'):
            form, slash, tag = morpheme.rpartition('/')
            if not slash or not form:
                return 'no form/TAG in ' + morpheme
            if tag not in TAGS:
                return 'unknown tag ' + tag
    return None


def check_morpheme_condition(text):
    """None, or what is wrong with one [index][tags][lexicons] condition."""
    fields = re.findall(r'\[([^\]]*)\]', text)
    if not text.startswith('[') or not 1 <= len(fields) <= 3:
        return 'a condition is [index][tags][lexicons]: ' + text
    if not (fields[0].isdigit() or fields[0] == '$'):
        return 'an index is digits or $: ' + text
    if len(fields) > 1 and fields[1]:
        for name in fields[1].split(':'):
            if name.lstrip('!') not in TAGS:
                return 'unknown tag ' + name
    if len(fields) > 2 and fields[2] and not (
            fields[2].startswith(':') and fields[2].endswith(':')):
        return 'lexicons begin and end with ":": ' + text
    return None


def check_group_rule(line):
    """None, or what is wrong with a line of sinfo/grule.klg."""
    patterns = [p.strip() for p in line.split('\t')]
    if sum(p.count('@') for p in patterns) != 1:
        return 'a rule has one pattern marked with @'
    for pattern in patterns:
        if not pattern:
            return 'an empty pattern'
        i = 0
        while i < len(pattern):
            c = pattern[i]
            if c in 'FNE@':
                i += 1
            elif c in '#%':
                if i + 1 >= len(pattern) or not pattern[i + 1].isdigit():
                    return c + ' takes one digit'
                i += 3  # the digit and the separator behind it
            elif c == '[':
                end = pattern.find('+', i)
                end = len(pattern) if end < 0 else end
                problem = check_morpheme_condition(pattern[i:end])
                if problem:
                    return problem
                i = end + 1
            else:
                return 'no pattern item begins with ' + c
    return None


def check_eojul_rule(line):
    """None, or what is wrong with a line of sinfo/erule.klg."""
    eojul, tab, number = line.partition('\t')
    if not tab or not eojul.strip() or not number.strip().isdigit():
        return 'a rule is eojul TAB candidate number'
    return None


def check_line(name, line):
    if name == GROUP_RULES:
        return check_group_rule(line)
    if name == EOJUL_RULES:
        return check_eojul_rule(line)
    if name in ENDING_FILES:
        return check_ending(line, name == 'js.dic')
    if name in MAIN_FILES:
        return check_main(line, name)
    if name in LIST_FILES:
        return check_list(line)
    return check_preanalysis(line)


def read_source(path, name):
    """The lines that carry entries, and a list of (line number, problem)."""
    entries, problems = [], []
    main_family = name not in ENDING_FILES
    with open(path, encoding='utf-8') as f:
        for number, raw in enumerate(f, 1):
            line = raw.rstrip('\n')
            if is_comment(line, main_family):
                continue
            problem = check_line(name, line)
            if problem:
                problems.append((number, problem))
            else:
                entries.append(line)
    return entries, problems


def write_cp949(path, lines):
    """Writes the lines in CP949; returns those that CP949 can't hold."""
    lost = []
    with open(path, 'wb') as f:
        for line in lines:
            try:
                f.write(line.encode('cp949') + b'\n')
            except UnicodeEncodeError:
                lost.append(line)
    return lost


def entry_word(line):
    """The word of a main-file line, without its @ marks."""
    return re.split('[\t ]', line, maxsplit=1)[0].lstrip('@')


def merged(imported, own):
    """Imported lines first, so that a word of our own has the last word;
    the words of our "!word" lines are left out of both."""
    removed = {line[len(REMOVE):].strip() for line in own if line.startswith(REMOVE)}
    seen, out = set(), []
    for line in imported + own:
        if line.startswith(REMOVE) or line in seen:
            continue
        if removed and entry_word(line) in removed:
            continue
        seen.add(line)
        out.append(line)
    return out


# Derivational suffixes that the analyzer's derivation route reads behind a
# noun (공부/NNG + 하/XSV, 사용 + 되, 자연 + 스럽): a predicate built of a
# noun and one of them is stored as the noun alone. 하 also follows a root
# that is no noun of its own (깨끗하다, 아담하다); such roots are added to the
# nouns. Only pieces of two syllables or more are split: 통하다, 위하다 and
# 말하다 stay whole, and so do verb forms in 아/어 before 하 (좋아하다).
DERIVATION_SUFFIXES = ('하', '되', '시키', '스럽', '당하', '받', '드리')
PREDICATE_FILES = ('vv.dic', 'va.dic')
# Vowels that end an infinitive in 아/어 (좋아, 미워, 기뻐, 귀찮아 + 하다).
EO_VOWELS = {0, 1, 3, 4, 6, 9, 10, 14}  # ㅏ ㅐ ㅒ ㅓ ㅕ ㅘ ㅙ ㅝ


def infinitive_like(syllable):
    """True for an open syllable whose vowel ends a 아/어 form."""
    code = ord(syllable) - 0xAC00
    if not 0 <= code < 11172 or code % 28 != 0:
        return False
    return (code // 28) % 21 in EO_VOWELS


# Files whose one-syllable words come from our own sources alone: the
# imported lists hold hundreds of rare one-syllable nouns (정 "chisel", 필
# "bolt of cloth") that the compound division would cut common words into
# (정도로 read as 정 + 도로); the everyday ones are in the core vocabulary.
OWN_SHORT_WORDS = ('nng.dic',)


# Last syllables of a base before 하 that make it an inflected form or a
# phrase (하게 하다, 보고 하다, 먹지 하다), not a root.
NO_ROOT_ENDINGS = set('게고지야도서면')


def split_derived(stems, nouns):
    """(stems to keep, roots to add as nouns) for the lines of a predicate
    file; a stem is the line's first field."""
    kept, roots = [], []
    for line in stems:
        stem = re.split('[\t ]', line, maxsplit=1)[0]
        base = None
        for suffix in DERIVATION_SUFFIXES:
            if stem.endswith(suffix) and len(stem) - len(suffix) >= 2:
                base = stem[:-len(suffix)]
                if base in nouns:
                    break
                if (suffix == '하' and not infinitive_like(base[-1]) and
                        base[-1] not in NO_ROOT_ENDINGS):
                    roots.append(base)
                    break
                base = None
        if base is None:
            kept.append(line)
    return kept, roots


# What qrl_train writes; a build without a corpus leaves none of them.
TRAINED_FILES = ['divInfo_freq_sorted.txt', 'posInfo_freq_sorted.txt',
                 'sinfo/tag_list.txt', 'sinfo/word_list.txt',
                 'sinfo/taglist.klg', 'sinfo/wordlist.klg']


def train(out, corpora, trainer, log):
    """Learns the statistical knowledge of `out` from the treebanks with the
    qrl_train tool; returns the number of failures (0 or 1). The files of an
    earlier training go first; so does a qrl.klg when training, so that the
    training analyses with the source dictionaries just written."""
    for name in TRAINED_FILES + (['qrl.klg'] if corpora else []):
        path = os.path.join(out, name)
        if os.path.exists(path):
            os.remove(path)
    if not corpora:
        return 0
    if not trainer or not os.path.exists(trainer):
        print('build_knowledge: no qrl_train tool at %s' % trainer, file=log)
        return 1
    result = subprocess.run([trainer, '-k', out] + corpora,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                            universal_newlines=True)
    log.write(result.stdout)
    if result.returncode != 0:
        log.write(result.stderr)
        print('build_knowledge: %s failed' % trainer, file=log)
        return 1
    return 0


# What tools/learn_lexicon.py writes beside its word lists: the words that
# the treebanks divide (word TAB stored division), and the noun suffixes
# they divide from the noun before them (one a line).
LEARNED_SPLITS = 'split.txt'
LEARNED_SUFFIXES = 'suffix.txt'
STORED_DIVISION = re.compile('^[1-9Y]+$')


def read_learned(learned_dir, name):
    """The lines of a learned text file, as pairs split at the TAB."""
    path = os.path.join(learned_dir, name) if learned_dir else None
    pairs = []
    if not path or not os.path.exists(path):
        return pairs
    with open(path, encoding='utf-8') as f:
        for raw in f:
            line = raw.rstrip('\n')
            if not is_comment(line, True):
                word, _, rest = line.partition('\t')
                pairs.append((word.strip(), rest.strip()))
    return pairs


def divisions(learned_dir, nouns):
    """Stored divisions by word: the learned ones, and every known noun
    made of a noun of two syllables or more and a divided suffix."""
    stored = {word: text for word, text in read_learned(learned_dir, LEARNED_SPLITS)
              if HANGUL_WORD.match(word) and STORED_DIVISION.match(text)}
    for suffix, _ in read_learned(learned_dir, LEARNED_SUFFIXES):
        for word in nouns:
            stem = word[:-len(suffix)]
            if (word.endswith(suffix) and 2 <= len(stem) <= 9 and stem in nouns
                    and word not in stored):
                stored[word] = str(len(stem)) + 'Y' * len(suffix)
    return stored


def store_divisions(sources, stored):
    """Moves the words with a stored division from the noun lists into
    nnp.dic with their division, which the analyzer writes as pieces (a
    digit: a noun of that many syllables, Y: a suffix syllable); a word of
    our own nnp.dic keeps its line."""
    own = {entry_word(line) for line in sources['nnp.dic']}
    moved = [word for word in sorted(stored) if word not in own]
    gone = set(moved)
    sources['nng.dic'] = [line for line in sources['nng.dic']
                          if entry_word(line) not in gone]
    sources['nnp.dic'] = sources['nnp.dic'] + [
        '%s\t%s' % (word, stored[word]) for word in moved]


def learned_lines(learned_dir, name):
    """The words of a learned list, or none."""
    path = os.path.join(learned_dir, name) if learned_dir else None
    if not path or not os.path.exists(path):
        return []
    return read_source(path, name)[0]


def copy_statistics(learned_dir, out):
    """Writes the learned statistics (UTF-8) into `out` in CP949; the
    number of files."""
    copied = 0
    for name in TRAINED_FILES:
        path = os.path.join(learned_dir, name)
        if os.path.exists(path):
            with open(path, encoding='utf-8') as f:
                text = f.read()
            with open(os.path.join(out, name), 'w', encoding='cp949') as f:
                f.write(text)
            copied += 1
    return copied


def build(src, out, imported_dir=None, compiler=None, log=sys.stderr,
          corpora=(), trainer=None, learned_dir=None):
    """Builds `out` from `src` and the word lists and statistics learned
    into `learned_dir`, trained on `corpora` when there are any (their
    statistics then replace the learned ones); returns the number of
    malformed lines and failed steps."""
    os.makedirs(os.path.join(out, 'sinfo'), exist_ok=True)
    bad = 0
    sources = {}
    for name in ENDING_FILES + MAIN_FILES + LIST_FILES + [PREANALYSIS] + RULE_FILES:
        own, problems = [], []
        path = os.path.join(src, name)
        if os.path.exists(path):
            own, problems = read_source(path, name)
        for number, problem in problems:
            print('%s:%d: %s' % (path, number, problem), file=log)
        bad += len(problems)
        imported = []
        extra = os.path.join(imported_dir, name) if imported_dir else None
        if extra and os.path.exists(extra):
            imported, _ = read_source(extra, name)
        if name in OWN_SHORT_WORDS:
            imported = [line for line in imported if len(entry_word(line)) > 1]
        imported = merged(imported, learned_lines(learned_dir, name))
        sources[name] = merged(imported, own)
    nouns = {entry_word(line) for line in sources['nng.dic']}
    for name in PREDICATE_FILES:
        sources[name], roots = split_derived(sources[name], nouns)
        sources['nng.dic'] = merged(sources['nng.dic'], roots)
        nouns.update(roots)
    store_divisions(sources, divisions(learned_dir, nouns))
    for name, lines in sources.items():
        if not lines:
            continue
        lost = write_cp949(os.path.join(out, name), lines)
        if lost:
            print('%s: %d lines have characters outside CP949, left out'
                  % (name, len(lost)), file=log)
    if bad == 0:
        bad += train(out, list(corpora), trainer, log)
    if bad == 0 and not corpora and learned_dir:
        copy_statistics(learned_dir, out)
    if compiler and bad == 0:
        result = subprocess.run([compiler, out], stderr=subprocess.PIPE,
                                universal_newlines=True)
        if result.stderr:
            log.write(result.stderr)
        if result.returncode != 0:
            print('build_knowledge: %s failed' % compiler, file=log)
            bad += 1
    return bad


def main(argv):
    root = os.path.dirname(HERE)
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--src', default=SRC)
    parser.add_argument('--out', default=os.path.join(root, 'build', 'knowledge'))
    parser.add_argument('--compiler', help='the qrl_compile tool')
    parser.add_argument('--train', action='append', default=[],
                        metavar='FILE.conllu',
                        help='a Sejong-tagged treebank to learn the statistical '
                             'knowledge from; repeatable')
    parser.add_argument('--trainer', help='the qrl_train tool (default: beside '
                                          'the compiler)')
    parser.add_argument('--hunspell-dic', default=HUNSPELL_DIC)
    parser.add_argument('--hunspell-aff', default=HUNSPELL_AFF)
    parser.add_argument('--no-hunspell', action='store_true')
    parser.add_argument('--learned',
                        help='the word lists and statistics learned from the '
                             'treebanks (scripts/learn_knowledge.sh; default: '
                             'the folder learned/ of --src); "none" builds '
                             'without them')
    args = parser.parse_args(argv)
    learned_dir = args.learned or os.path.join(args.src, 'learned')
    if learned_dir == 'none':
        learned_dir = None

    with tempfile.TemporaryDirectory() as work:
        imported_dir = None
        if args.no_hunspell:
            pass
        elif os.path.exists(args.hunspell_dic) and os.path.exists(args.hunspell_aff):
            imported_dir = os.path.join(work, 'hunspell')
            if import_hunspell_ko.main(['--dic', args.hunspell_dic,
                                        '--aff', args.hunspell_aff,
                                        '--out', imported_dir]) != 0:
                imported_dir = None
        else:
            print('build_knowledge: no Hunspell dictionary at %s; building the '
                  'core vocabulary only' % args.hunspell_dic, file=sys.stderr)
        trainer = args.trainer
        if not trainer and args.compiler:
            trainer = os.path.join(os.path.dirname(args.compiler), 'qrl_train')
        bad = build(args.src, args.out, imported_dir, args.compiler,
                    corpora=args.train, trainer=trainer, learned_dir=learned_dir)
    if bad:
        print('build_knowledge: %d malformed lines or failed steps' % bad,
              file=sys.stderr)
        return 1
    print('build_knowledge: wrote %s' % args.out)
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
