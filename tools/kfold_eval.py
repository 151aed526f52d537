#!/usr/bin/env python3
"""Held-out measurement of the analyzer on CoNLL-U treebanks, k-fold.

Each treebank is cut by sentence into K contiguous folds. For each fold the
learned knowledge (tools/learn_lexicon.py, then qrl_train) is learned from
the other folds and from the other treebanks, a knowledge base is built with
it, and the fold is measured with qrl_eval in tagging modes 0 and 1: what is
measured is never in the knowledge it is measured with. Prints each fold's
figures, their mean per treebank and mode, and the most frequent error kinds
of the better mode over all folds. Nothing derived from the treebanks is
kept: the work directory is temporary.

Usage: kfold_eval.py --build DIR [--folds K] [--errors N] [--floor F1]
                     [--no-hunspell] [--scale S] TREEBANK.conllu...
Exit status 1 when a step fails, or when --floor is given and the better
mode's mean morpheme F1 on the first treebank is below it.
"""
import argparse
import collections
import os
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
import build_knowledge  # noqa: E402
import learn_knowledge  # noqa: E402

FIGURES = ('morpheme_f1', 'segmentation_f1', 'eojul_accuracy')
# The choices of the comparison, each also measured switched off (in both
# modes), so that nothing is hidden; later options override EVAL_OPTIONS.
VARIANTS = [
    ('endings as written (-f none)', ['-f', 'none']),
    ('options 20-22 off (the library)', ['-o', '20=0', '-o', '21=0', '-o', '22=0']),
    ('options 12, 13 off', ['-o', '12=0', '-o', '13=0']),
]
# The choices of the comparison (knowledge-src/README.md, Evaluation).
EVAL_OPTIONS = ['-o', '12=1', '-o', '13=1', '-o', '20=1', '-o', '21=1', '-o', '22=1']


def read_sentences(path):
    """The sentences of a CoNLL-U file as blocks of lines."""
    with open(path, encoding='utf-8') as f:
        text = f.read()
    return [block.strip('\n') for block in text.split('\n\n') if block.strip()]


def write_sentences(path, blocks):
    with open(path, 'w', encoding='utf-8') as f:
        f.write('\n\n'.join(blocks) + '\n\n')


def run(command):
    result = subprocess.run(command, stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE, universal_newlines=True)
    if result.returncode != 0:
        sys.stderr.write(result.stderr)
        raise RuntimeError('%s failed' % os.path.basename(command[0]))
    return result.stdout


def fold_knowledge(tools, imported, train_files, work, scale):
    """Learns from `train_files` into work/learned and builds work/kb with
    it; returns the knowledge directory."""
    learned = os.path.join(work, 'learned')
    with open(os.path.join(work, 'build.log'), 'w') as log:
        learn_knowledge.learn(train_files, learned, tools['qrl_train'], imported,
                              scale, log=log)
        kb = os.path.join(work, 'kb')
        if build_knowledge.build(build_knowledge.SRC, kb, imported,
                                 tools['qrl_compile'], log=log,
                                 learned_dir=learned) != 0:
            raise RuntimeError('the knowledge build failed (%s)' % log.name)
    return kb


def figures(line):
    return {k: float(v) for k, v in re.findall(r'(\w+)=([0-9.]+)', line)}


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--build', required=True,
                        help='the directory of qrl_compile, qrl_train, qrl_eval')
    parser.add_argument('--folds', type=int, default=5)
    parser.add_argument('--errors', type=int, default=12)
    parser.add_argument('--floor', type=float)
    parser.add_argument('--scale', type=int, default=learn_knowledge.SCALE)
    parser.add_argument('--no-hunspell', action='store_true')
    parser.add_argument('--dump', help='write every wrong eojul of every fold '
                                       'here: treebank, mode, kind, surface, '
                                       'gold, system')
    parser.add_argument('treebanks', nargs='+')
    args = parser.parse_args(argv)
    tools = {name: os.path.join(args.build, name)
             for name in ('qrl_compile', 'qrl_train', 'qrl_eval')}
    corpora = [(path, read_sentences(path)) for path in args.treebanks]
    means = {}
    dump_out = open(args.dump, 'w', encoding='utf-8') if args.dump else None
    with tempfile.TemporaryDirectory() as work:
        imported = None if args.no_hunspell else learn_knowledge.import_hunspell(work)
        for t, (path, blocks) in enumerate(corpora):
            name = os.path.basename(path)
            others = [p for p, _ in corpora if p != path]
            results = collections.defaultdict(list)
            variants = collections.defaultdict(list)
            errors = {0: collections.Counter(), 1: collections.Counter()}
            examples = {}
            k = min(args.folds, len(blocks))
            for i in range(k):
                lo, hi = i * len(blocks) // k, (i + 1) * len(blocks) // k
                fold = os.path.join(work, 'fold%d-%d' % (t, i))
                os.makedirs(fold)
                test = os.path.join(fold, 'test.conllu')
                train = os.path.join(fold, 'train.conllu')
                write_sentences(test, blocks[lo:hi])
                write_sentences(train, blocks[:lo] + blocks[hi:])
                kb = fold_knowledge(tools, imported, [train] + others, fold,
                                    args.scale)
                for mode in (0, 1):
                    dump = os.path.join(fold, 'errors%d.tsv' % mode)
                    line = run([tools['qrl_eval'], '-k', kb, '-t', str(mode), '-s',
                                '-d', dump] + EVAL_OPTIONS + [test]).split('\n')[0]
                    results[mode].append(figures(line))
                    print('%s fold %d/%d mode %d: %s' % (name, i + 1, k, mode, line))
                    for label, extra in VARIANTS:
                        line = run([tools['qrl_eval'], '-k', kb, '-t', str(mode), '-s']
                                   + EVAL_OPTIONS + extra + [test]).split('\n')[0]
                        variants[(label, mode)].append(figures(line))
                    with open(dump, encoding='utf-8') as f:
                        for row in f:
                            cells = row.rstrip('\n').split('\t')
                            errors[mode][cells[0]] += 1
                            if dump_out:
                                dump_out.write('%s\t%d\t%s' % (name, mode, row))
                            examples.setdefault((mode, cells[0]), cells[1:4])
            print('== %s, held out, mean of %d folds' % (name, k))
            for mode in (0, 1):
                mean = {f: sum(r[f] for r in results[mode]) / k for f in FIGURES}
                means[(t, mode)] = mean
                print('mode %d: %s' % (mode, ' '.join(
                    '%s=%.4f' % (f, mean[f]) for f in FIGURES)))
            for label, _ in VARIANTS:
                print('  %-34s %s' % (label + ':', '  '.join(
                    'mode %d morpheme_f1=%.4f eojul_accuracy=%.4f' % (
                        mode,
                        sum(r['morpheme_f1'] for r in variants[(label, mode)]) / k,
                        sum(r['eojul_accuracy'] for r in variants[(label, mode)]) / k)
                    for mode in (0, 1))))
            best = max((0, 1), key=lambda m: means[(t, m)]['morpheme_f1'])
            print('most frequent error kinds, mode %d (wrong eojuls: %d):' % (
                best, sum(errors[best].values())))
            for kind, count in errors[best].most_common(args.errors):
                surface, gold, system = examples[(best, kind)]
                print('  %5d  %s\n         e.g. %s  gold %s  system %s' % (
                    count, kind, surface, gold, system))
    if args.floor is not None:
        f1 = max(means[(0, 0)]['morpheme_f1'], means[(0, 1)]['morpheme_f1'])
        if f1 < args.floor:
            print('kfold_eval: morpheme F1 %.4f is below the floor %.4f'
                  % (f1, args.floor))
            return 1
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
