"""What tools/learn_lexicon.py learns from a treebank, and how the knowledge
build stores the learned divisions."""
import os
import sys

import pytest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), '..', '..', 'tools'))
import build_knowledge  # noqa: E402
import learn_lexicon  # noqa: E402


def token(surface, lemma, xpos, misc='_', number=1):
    return '%d\t%s\t%s\t_\t%s\t_\t0\t_\t_\t%s' % (number, surface, lemma, xpos, misc)


def treebank(tmp_path, sentences, name='t.conllu'):
    """A CoNLL-U file of sentences given as lists of (surface, lemma, xpos)."""
    blocks = []
    for s, tokens in enumerate(sentences):
        lines = ['# sent_id = s%d' % s]
        lines += [token(*t, number=i + 1) for i, t in enumerate(tokens)]
        blocks.append('\n'.join(lines))
    path = tmp_path / name
    path.write_text('\n\n'.join(blocks) + '\n\n', encoding='utf-8')
    return str(path)


def test_words_need_two_sentences_and_nouns_two_syllables(tmp_path):
    path = treebank(tmp_path, [
        [('학교에', '학교+에', 'NNG+JKB'), ('몹시', '몹시', 'MAG'), ('도', '도', 'NNG')],
        [('학교는', '학교+는', 'NNG+JX'), ('몹시', '몹시', 'mag'), ('도', '도', 'NNG')],
        [('바다', '바다', 'NNG'), ('그립다', '그립+다', 'paa+ef')],
        [('그립고', '그립+고', 'VA+EC')],
    ])
    lists, splits, suffixes = learn_lexicon.learn([path], 2)
    assert lists['nng.dic'] == ['학교']       # 바다 once, 도 one syllable
    assert lists['ma.dic'] == ['몹시']        # Sejong and KAIST tags alike
    assert lists['va.dic'] == ['그립']
    assert splits == {} and suffixes == []


@pytest.mark.parametrize('tokens, expected', [
    # A run of nouns in two sentences, never one noun: its division.
    ([[('국제사회의', '국제+사회+의', 'NNG+NNG+JKG')],
      [('국제사회', '국제+사회', 'ncn+ncn')]], {'국제사회': '22'}),
    # A noun and a noun suffix: Y per syllable of the suffix.
    ([[('본격적으로', '본격+적+으로', 'NNG+XSN+JKB')],
      [('본격적', '본격+적', 'NNG+XSN')]], {'본격적': '2Y'}),
    # Written whole once: no division.
    ([[('국제사회의', '국제+사회+의', 'NNG+NNG+JKG')],
      [('국제사회', '국제+사회', 'NNG+NNG')],
      [('국제사회', '국제사회', 'NNG')]], {}),
    # One sentence only.
    ([[('국제사회', '국제+사회', 'NNG+NNG'), ('국제사회', '국제+사회', 'NNG+NNG')]], {}),
    # A suffix before any noun starts no run.
    ([[('들', '들', 'XSN')], [('들', '들', 'XSN')]], {}),
])
def test_divided_words(tmp_path, tokens, expected):
    _, splits, _ = learn_lexicon.learn([treebank(tmp_path, tokens)], 2)
    assert splits == expected


def test_a_suffix_is_divided_when_the_treebank_divides_it_in_nine_words_of_ten(tmp_path):
    stems = ['경제', '사회', '정치', '역사', '과학', '문화', '기본', '근본', '상대',
             '절대', '세계']
    sentences = [[(s + '적', s + '+적', 'NNG+XSN')] for s in stems]
    # 님 in one word only; 적 written whole in one word of twelve.
    sentences += [[('선생님', '선생+님', 'NNG+XSN')], [('선생', '선생', 'NNG')]]
    sentences += [[('인간', '인간', 'NNG')], [('인간적', '인간적', 'NNG')]]
    _, _, suffixes = learn_lexicon.learn([treebank(tmp_path, sentences)], 2)
    assert suffixes == ['적']
    sentences += [[('문명', '문명', 'NNG')], [('문명적', '문명적', 'NNG')]]
    _, _, suffixes = learn_lexicon.learn([treebank(tmp_path, sentences, 'u.conllu')], 2)
    assert suffixes == []


def test_eojuls_of_one_reading_in_nine_uses_of_ten_are_pre_analysed(tmp_path):
    sentences = [
        [('학교에서의', '학교+에서+의', 'NNG+JKB+JKG'), ('갔다', '가+았+다', 'VV+EP+EF')],
        [('학교에서의', '학교+에서+의', 'ncn+jca+jcm'), ('갔다', '가+았+다', 'VV+EP+EF')],
        # 있다 read two ways: no entry; 나무 in one sentence only.
        [('있다', '있+다', 'VV+EF'), ('나무', '나무', 'NNG')],
        [('있다', '있+다', 'paa+ef')],
        # An eojul with a mark attached is no single token: no entry.
        [('좋다', '좋+다', 'VA+EF', 'SpaceAfter=No'), ('.', '.', 'SF')],
        [('좋다', '좋+다', 'VA+EF', 'SpaceAfter=No'), ('.', '.', 'SF')],
    ]
    lists, _, _ = learn_lexicon.learn([treebank(tmp_path, sentences)], 2)
    # The two treebanks' tags give one reading; the josa chain is one josa.
    assert lists['preanal.sys.dic'] == ['갔다\t가/VV+았/EP+다/EF',
                                        '학교에서의\t학교/NNG+에서의/J_']


def test_the_build_stores_divisions_in_the_proper_noun_list(tmp_path):
    learned = tmp_path / 'learned'
    learned.mkdir()
    (learned / 'split.txt').write_text('; comment\n국제사회\t22\n대한민국\t4\n나쁜\tx\n',
                                       encoding='utf-8')
    (learned / 'suffix.txt').write_text('적\n', encoding='utf-8')
    nouns = {'국제사회', '경제', '경제적', '목적', '목', '본격', '본격적', '대한민국'}
    stored = build_knowledge.divisions(str(learned), nouns)
    # 목적: a one-syllable stem is no noun of this rule; 나쁜 x is no division.
    assert stored == {'국제사회': '22', '대한민국': '4', '경제적': '2Y', '본격적': '2Y'}
    sources = {'nng.dic': ['국제사회', '경제적', '목적', '@경제'],
               'nnp.dic': ['대한민국\t22']}
    build_knowledge.store_divisions(sources, stored)
    assert sources['nng.dic'] == ['목적', '@경제']
    # Our own line of a word stays as it is.
    assert sources['nnp.dic'] == ['대한민국\t22', '경제적\t2Y', '국제사회\t22',
                                  '본격적\t2Y']


def test_learned_lists_merge_between_the_import_and_our_own_files(tmp_path):
    src = tmp_path / 'src'
    (src / 'learned').mkdir(parents=True)
    (src / 'nng.dic').write_text('학교\n!바다\n', encoding='utf-8')
    (src / 'learned' / 'nng.dic').write_text('; learned\n바다\n하늘\n국제사회\n',
                                             encoding='utf-8')
    (src / 'learned' / 'split.txt').write_text('국제사회\t22\n', encoding='utf-8')
    (src / 'learned' / 'divInfo_freq_sorted.txt').write_text('제 사\t300\n',
                                                             encoding='utf-8')
    out = tmp_path / 'out'
    log = open(os.devnull, 'w')
    assert build_knowledge.build(str(src), str(out), learned_dir=str(src / 'learned'),
                                 log=log) == 0
    nng = (out / 'nng.dic').read_bytes().decode('cp949').split('\n')
    assert [w for w in nng if w] == ['하늘', '학교']
    nnp = (out / 'nnp.dic').read_bytes().decode('cp949')
    assert nnp == '국제사회\t22\n'
    # The learned statistics are written in CP949.
    assert (out / 'divInfo_freq_sorted.txt').read_bytes() == '제 사\t300\n'.encode('cp949')
