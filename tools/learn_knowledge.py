#!/usr/bin/env python3
"""Learns the knowledge that the treebanks teach into one directory.

Two steps, both from CoNLL-U treebanks with Sejong or KAIST tags:

1. tools/learn_lexicon.py: word lists, stored divisions and divided
   suffixes (words seen in at least two sentences).
2. qrl_train over a knowledge base built with them: the compound-noun
   frequencies (divInfo_freq_sorted.txt, posInfo_freq_sorted.txt) and the
   tagger's frequency model (sinfo/tag_list.txt, word_list.txt,
   taglist.klg, wordlist.klg). Every count is multiplied by SCALE, so that
   a joint or place seen once clears the loaders' floor of 100, and a word
   gets an entry only when seen in two sentences or more.

The statistics are kept in UTF-8 like every source; the knowledge build
writes them in CP949. scripts/learn_knowledge.sh runs this on the treebanks
of ../shared/corpus into knowledge-src/learned.

Usage: learn_knowledge.py --trainer QRL_TRAIN [--out DIR] [--scale S]
                          [--no-hunspell] FILE.conllu...
"""
import argparse
import os
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
import build_knowledge  # noqa: E402
import import_hunspell_ko  # noqa: E402
import learn_lexicon  # noqa: E402

SCALE = 100
MIN_SENTENCES = 2


def import_hunspell(work):
    """The Hunspell word lists imported into work/hunspell, or None."""
    if not os.path.exists(build_knowledge.HUNSPELL_DIC):
        return None
    imported = os.path.join(work, 'hunspell')
    with open(os.devnull, 'w') as quiet:
        saved, sys.stdout = sys.stdout, quiet
        try:
            status = import_hunspell_ko.main(['--out', imported])
        finally:
            sys.stdout = saved
    return imported if status == 0 else None


def learn(treebanks, out, trainer, imported, scale=SCALE, log=sys.stderr):
    """Learns into `out` from `treebanks`; returns qrl_train's report."""
    lists, splits, suffixes = learn_lexicon.learn(treebanks, MIN_SENTENCES)
    learn_lexicon.write(out, lists, splits, suffixes, MIN_SENTENCES)
    with tempfile.TemporaryDirectory() as work:
        plain = os.path.join(work, 'plain')
        # The statistics of the knowledge that will use them: with the
        # learned lists, without older statistics.
        staged = os.path.join(work, 'lists')
        shutil.copytree(out, staged)
        for name in build_knowledge.TRAINED_FILES:
            path = os.path.join(staged, name)
            if os.path.exists(path):
                os.remove(path)
        if build_knowledge.build(build_knowledge.SRC, plain, imported, None,
                                 log=log, learned_dir=staged) != 0:
            raise RuntimeError('the knowledge build failed')
        stats = os.path.join(work, 'stats')
        result = subprocess.run(
            [trainer, '-k', plain, '-o', stats, '-s', str(scale),
             '-m', str(MIN_SENTENCES)] + list(treebanks),
            stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            universal_newlines=True)
        if result.returncode != 0:
            log.write(result.stderr)
            raise RuntimeError('%s failed' % trainer)
        os.makedirs(os.path.join(out, 'sinfo'), exist_ok=True)
        for name in build_knowledge.TRAINED_FILES:
            with open(os.path.join(stats, name), encoding='cp949') as f:
                text = f.read()
            with open(os.path.join(out, name), 'w', encoding='utf-8') as f:
                f.write(text)
    return result.stdout


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--trainer', required=True, help='the qrl_train tool')
    parser.add_argument('--out', default=os.path.join(build_knowledge.SRC, 'learned'))
    parser.add_argument('--scale', type=int, default=SCALE)
    parser.add_argument('--no-hunspell', action='store_true')
    parser.add_argument('treebanks', nargs='+')
    args = parser.parse_args(argv)
    if learn_lexicon.missing_treebank('learn_knowledge', args.treebanks):
        return 1
    with tempfile.TemporaryDirectory() as work:
        imported = None if args.no_hunspell else import_hunspell(work)
        report = learn(args.treebanks, args.out, args.trainer, imported, args.scale)
    sys.stdout.write(report)
    print('learn_knowledge: written to %s' % args.out)
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
