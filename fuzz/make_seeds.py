#!/usr/bin/env python3
"""Writes the seed inputs of the fuzz targets to fuzz/corpus/<target>/.

The seeds are small inputs made here: CP949 texts behind their option bytes,
typical and malformed lines of each knowledge file, and compiled images of an
empty and of a tiny knowledge directory (made with the qrl_compile tool).

Usage: make_seeds.py --compiler PATH/qrl_compile
"""
import argparse
import hashlib
import os
import shutil
import subprocess
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
CORPUS = os.path.join(HERE, 'corpus')


def cp(text):
    return text.encode('cp949')


def write(target, seeds):
    folder = os.path.join(CORPUS, target)
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    for data in seeds:
        name = hashlib.sha1(data).hexdigest()[:16]
        with open(os.path.join(folder, name), 'wb') as f:
            f.write(data)


TEXTS = [
    '나는 학교에 갔다. 하늘이 맑다!',
    '3,000원짜리 사과를 2개 샀습니다 1.5kg 3.14.15 1,2345',
    '"책"을 말했다. !!! 10% ABC뉴스의 기사',
    '漢字와 한글 ㄱㄴㄷ (괄호) 【표】 ～ 먹었는데요?',
    '걸어가셨겠지요 도와주었다 그리고 예쁜 꽃들이 피었다',
]


def text_seeds():
    options = [b'\x03\x00\x00', b'\x0b\x04\x05', b'\x22\x29\x4a',
               b'\x81\xff\x87', b'\x46\x12\x00']
    seeds = [o + cp(t) for o, t in zip(options, TEXTS)]
    seeds.append(b'\x01\x00\x00' + cp('가나다라마바사') * 25)  # overlong token
    seeds.append(b'\x02\x40\x00' + cp('학교') + b'\xb0')        # lead byte alone
    seeds.append(b'\x01\x00\x00' + cp('ㅏㅑ') + b'\xa4\xfe \xa1\xa1 x')
    return seeds


def eojul_seeds():
    words = ['먹었다', '학교에서', '3,000원', 'ABC뉴스의', '漢字', 'ㄱ',
             '걸어가셨겠지요', '말했다.', '1.5kg']
    return [bytes([k * 37 % 256, k * 11 % 256]) + cp(w)
            for k, w in enumerate(words)]


SOURCE_FILES = [
    ('em.dic', '다\t다/EF 1\n는\t는/ETM 0 5#는/EF 0\n었\t었/EP 0\n면\t면EC 1\n'),
    ('js.dic', '가\t이/JKS 1#가/JKS 2\n에서\t에서/JKB 0 5\n도\t도/JX 1#도\n'),
    ('nnb.dic', '개\t1\n빈단위\n'),
    ('nng.dic', '학교\n@사과\n서울 무시\n김치\t무시\r\n'),
    ('np.dic', '그것\n'),
    ('nni.dic', '세계\n'),
    ('nnp.dic', '대한민국\t대한 민국\n빈칸\n'),
    ('nu.dic', '하나\t1\n'),
    ('vv.dic', '먹\n가\n'),
    ('va.dic', '예쁘\n'),
    ('ma.dic', '아주\n'),
    ('mm.dic', '새\n'),
    ('ic.dic', '아\n'),
    ('vx.dic', '보\n'),
    ('divInfo_freq_sorted.txt', '학교 생활\t150\n사과 나무\t99\n'),
    ('posInfo_freq_sorted.txt', '학교\t10\t20\t300\n가\t1\t0\n'),
    ('xp.dic', '제\n 제외\n'),
    ('xsn.dic', '들\n님\n'),
    ('xsnxsn.dic', '들님\n'),
    ('conj.dic', '그리고\n'),
    ('preanal.sys.dic', '갔다\t가/VV+았/EP+다/EF\n나는\t나/NP+는/JX@나/VV+는/ETM\n'),
    ('user.dic', '새말\t2\n@abc\t3\nab\ta@\n'),
]

TAGGER_FILES = [
    'erule.klg\t나는\t0\n학교에\t1\n틀린\t1 2\n',
    'grule.klg\t[1][NP]\t@[1][VV]\t[1][NNG]\nF@#2+[$][NNG:!VV][:학교:]\n',
    'tag_list.txt\tFOS\nEOS\nNNG\nVV+EM\n',
    'word_list.txt\t나\t10\n학교\t4\n',
    'taglist.klg\tNNG\t2\nFOS\tEOS\t1000\nFOS\tVV+EM\t30\n',
    'wordlist.klg\t나-NP+J_\t1\nFOS\tNNG\t5\n',
]


def compiled_images(compiler):
    images = []
    with tempfile.TemporaryDirectory() as tmp:
        empty = os.path.join(tmp, 'empty')
        tiny = os.path.join(tmp, 'tiny')
        os.makedirs(empty)
        os.makedirs(tiny)
        for name, content in SOURCE_FILES[:-1]:
            with open(os.path.join(tiny, name), 'wb') as f:
                f.write(cp(content))
        for folder in (empty, tiny):
            subprocess.run([compiler, folder], check=True,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            with open(os.path.join(folder, 'qrl.klg'), 'rb') as f:
                images.append(f.read())
    return images


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('--compiler', required=True)
    args = parser.parse_args()
    write('run_string_fuzzer', text_seeds())
    write('eojul_fuzzer', eojul_seeds())
    write('source_files_fuzzer',
          [bytes([k]) + cp(content) for k, (_, content) in enumerate(SOURCE_FILES)])
    write('tagger_files_fuzzer',
          [bytes([k]) + cp(line.split('\t', 1)[1])
           for k, line in enumerate(TAGGER_FILES)])
    images = compiled_images(args.compiler)
    write('compiled_file_fuzzer',
          [b'\x01' + image for image in images] + [b'\x00' + images[0][:67]])
    write('compiled_image_fuzzer', [
        b'\x01', b'\x00', b'\x03\x00\x00\x80',
        b'\x01' + bytes([0x50, 0x00, 0x00, 0x01]),
        b'\x01' + bytes([0x00, 0x10, 0x00, 0xff, 0x33, 0x01, 0x00, 0x80]),
    ])


if __name__ == '__main__':
    main()
