#!/usr/bin/env python3
"""Generates text/charset_tables.inc, the mapping tables of the converter.

Source: the published mappings as the C library's iconv(3) holds them
(glibc; charsets UHC, EUC-JP, SJIS, EUC-CN, BIG5 and ISO-8859-15), reached
through ctypes. Every code of a set's code space is decoded, and every
code point of the Basic Multilingual Plane is encoded, so one-way mappings
of the encoder are kept too.

A set's codes are numbered by a linear index (see the *_index functions,
which text/charset_tables.h repeats). Each table is a list of runs over
sorted keys: a run maps [first, last] either onto values counting up from
`value`, or onto the values listed from list[value] on (0xFFFF: no mapping).

Usage: python3 tools/gen_charset_tables.py > text/charset_tables.inc
"""

import ctypes
import ctypes.util
import platform
import sys

NO_VALUE = 0xFFFF
MIN_COUNTED_RUN = 6   # shorter contiguous stretches go into a listed run
MAX_HOLE = 3          # a run costs 8 bytes, a hole 2: bridge at most 3 holes


# --- iconv through ctypes -------------------------------------------------

_libc = ctypes.CDLL(ctypes.util.find_library("c"), use_errno=True)
_libc.iconv_open.restype = ctypes.c_void_p
_libc.iconv_open.argtypes = [ctypes.c_char_p, ctypes.c_char_p]
_libc.iconv.restype = ctypes.c_size_t
_libc.iconv.argtypes = [ctypes.c_void_p,
                        ctypes.POINTER(ctypes.c_char_p),
                        ctypes.POINTER(ctypes.c_size_t),
                        ctypes.POINTER(ctypes.c_char_p),
                        ctypes.POINTER(ctypes.c_size_t)]
_libc.iconv_close.argtypes = [ctypes.c_void_p]
_FAILED = ctypes.c_size_t(-1).value


class Iconv:
    """One conversion descriptor; call it with bytes, get bytes or None."""

    def __init__(self, to_code, from_code):
        self.cd = _libc.iconv_open(to_code.encode(), from_code.encode())
        if self.cd is None or self.cd == ctypes.c_void_p(-1).value:
            sys.exit("iconv cannot convert %s to %s" % (from_code, to_code))
        self.out = ctypes.create_string_buffer(64)

    def __call__(self, data):
        _libc.iconv(self.cd, None, None, None, None)
        src = ctypes.create_string_buffer(data, len(data))
        in_ptr = ctypes.c_char_p(ctypes.addressof(src))
        in_left = ctypes.c_size_t(len(data))
        out_ptr = ctypes.c_char_p(ctypes.addressof(self.out))
        out_left = ctypes.c_size_t(len(self.out))
        result = _libc.iconv(self.cd, ctypes.byref(in_ptr), ctypes.byref(in_left),
                             ctypes.byref(out_ptr), ctypes.byref(out_left))
        if result == _FAILED or in_left.value != 0:
            return None
        if _libc.iconv(self.cd, None, None, ctypes.byref(out_ptr),
                       ctypes.byref(out_left)) == _FAILED:
            return None
        return self.out.raw[:len(self.out) - out_left.value]


def decoder(charset):
    conv = Iconv("UTF-32LE", charset)

    def decode(code_bytes):
        out = conv(code_bytes)
        if out is None or len(out) != 4:
            return None
        return int.from_bytes(out, "little")
    return decode


def encoder(charset):
    conv = Iconv(charset, "UTF-32LE")

    def encode(code_point):
        return conv(code_point.to_bytes(4, "little"))
    return encode


def bmp():
    return [cp for cp in range(0x80, 0x10000) if not 0xD800 <= cp <= 0xDFFF]


# --- code spaces: linear index of a code, and back ------------------------

def index94(lead, trail):
    """94 x 94 sets in their EUC (GR) form: both bytes 0xA1..0xFE."""
    if 0xA1 <= lead <= 0xFE and 0xA1 <= trail <= 0xFE:
        return (lead - 0xA1) * 94 + (trail - 0xA1)
    return None


def cp949_trail(trail):
    """Trail bytes of the extension: A-Z, a-z, then 0x81..0xFE."""
    if 0x41 <= trail <= 0x5A:
        return trail - 0x41
    if 0x61 <= trail <= 0x7A:
        return trail - 0x61 + 26
    if 0x81 <= trail <= 0xFE:
        return trail - 0x81 + 52
    return None


def ext1_index(lead, trail):
    t = cp949_trail(trail)
    if 0x81 <= lead <= 0xA0 and t is not None:
        return (lead - 0x81) * 178 + t
    return None


def ext2_index(lead, trail):
    t = cp949_trail(trail)
    if 0xA1 <= lead <= 0xFE and t is not None and t < 84:
        return (lead - 0xA1) * 84 + t
    return None


def big5_index(lead, trail):
    if not 0xA1 <= lead <= 0xF9:
        return None
    if 0x40 <= trail <= 0x7E:
        return (lead - 0xA1) * 157 + trail - 0x40
    if 0xA1 <= trail <= 0xFE:
        return (lead - 0xA1) * 157 + trail - 0xA1 + 63
    return None


def sjis_to_jis(lead, trail):
    """Shift-JIS bytes to the EUC form of JIS X 0208, or None."""
    if 0x81 <= lead <= 0x9F:
        row = (lead - 0x81) * 2
    elif 0xE0 <= lead <= 0xEF:
        row = (lead - 0xC1) * 2
    else:
        return None
    if 0x40 <= trail <= 0x7E:
        col = trail - 0x40
    elif 0x80 <= trail <= 0x9E:
        col = trail - 0x41
    elif 0x9F <= trail <= 0xFC:
        row += 1
        col = trail - 0x9F
    else:
        return None
    return (row + 0xA1, col + 0xA1)


# --- scanning ---------------------------------------------------------------

def scan_double(decode, leads, index, prefix=b""):
    """{index: code point} over every lead and trail byte."""
    table = {}
    for lead in leads:
        for trail in range(0x21, 0x100):
            i = index(lead, trail)
            cp = decode(prefix + bytes([lead, trail]))
            if cp is None:
                continue
            if i is None:
                sys.exit("code %02X%02X outside its code space" % (lead, trail))
            if cp > 0xFFFF:
                sys.exit("code %02X%02X maps outside UCS-2" % (lead, trail))
            table[i] = cp
    return table


class Sets:
    """Forward {index: cp} and reverse {cp: index} dictionaries per set."""

    def __init__(self):
        self.forward = {}
        self.reverse = {}

    def add_reverse(self, name, cp, i):
        self.reverse.setdefault(name, {})[cp] = i


def scan_korean(sets):
    decode = decoder("UHC")
    uhc = scan_double(decode, range(0x81, 0xFF),
                      lambda l, t: (l << 8) | t)
    ks, ext1, ext2 = {}, {}, {}
    for code, cp in uhc.items():
        lead, trail = code >> 8, code & 0xFF
        if lead >= 0xA1 and trail >= 0xA1:
            ks[index94(lead, trail)] = cp
        elif lead <= 0xA0:
            ext1[ext1_index(lead, trail)] = cp
        else:
            ext2[ext2_index(lead, trail)] = cp
    sets.forward.update(Ksx1001=ks, Cp949Ext1=ext1, Cp949Ext2=ext2)
    encode = encoder("UHC")
    for cp in bmp():
        out = encode(cp)
        if out is None or len(out) != 2:
            continue
        lead, trail = out
        if lead >= 0xA1 and trail >= 0xA1:
            sets.add_reverse("Ksx1001", cp, index94(lead, trail))
        elif not 0xAC00 <= cp <= 0xD7A3:
            sys.exit("U+%04X encodes into the extension" % cp)
        elif lead <= 0xA0:
            if cp >= 51365:
                sys.exit("U+%04X belongs to the second extension" % cp)
            sets.add_reverse("Cp949Ext1", cp, ext1_index(lead, trail))
        else:
            if cp < 51365:
                sys.exit("U+%04X belongs to the first extension" % cp)
            sets.add_reverse("Cp949Ext2", cp, ext2_index(lead, trail))


def scan_japanese(sets):
    decode = decoder("EUC-JP")
    sets.forward["Jisx0208"] = scan_double(decode, range(0xA1, 0xFF), index94)
    sets.forward["Jisx0212"] = scan_double(decode, range(0xA1, 0xFF), index94,
                                           b"\x8f")
    sjis_decode = decoder("SJIS")
    kana = {}
    for byte in range(0x100):
        cp = sjis_decode(bytes([byte]))
        if cp is not None:
            kana[byte] = cp
    sets.forward["Jisx0201"] = kana
    # Shift-JIS shares the JIS X 0208 table: make sure it may.
    for lead in range(0x81, 0x100):
        for trail in range(0x40, 0x100):
            cp = sjis_decode(bytes([lead, trail]))
            jis = sjis_to_jis(lead, trail)
            expected = None if jis is None else \
                sets.forward["Jisx0208"].get(index94(*jis))
            if cp != expected:
                sys.exit("SJIS %02X%02X disagrees with JIS X 0208" % (lead, trail))

    encode = encoder("EUC-JP")
    for cp in bmp():
        out = encode(cp)
        if out is None or len(out) == 1:
            continue
        if len(out) == 2 and out[0] == 0x8E:
            continue  # the half-width kana come from JIS X 0201 below
        if len(out) == 2:
            sets.add_reverse("Jisx0208", cp, index94(out[0], out[1]))
        elif len(out) == 3 and out[0] == 0x8F:
            sets.add_reverse("Jisx0212", cp, index94(out[1], out[2]))
        else:
            sys.exit("EUC-JP encodes U+%04X unexpectedly" % cp)
    sjis_encode = encoder("SJIS")
    for cp in range(0x10000):
        if 0xD800 <= cp <= 0xDFFF:
            continue
        out = sjis_encode(cp)
        if out is not None and len(out) == 1:
            sets.add_reverse("Jisx0201", cp, out[0])


def scan_simple_double(sets, name, charset, leads, index):
    decode = decoder(charset)
    sets.forward[name] = scan_double(decode, leads, index)
    encode = encoder(charset)
    for cp in bmp():
        out = encode(cp)
        if out is None or len(out) != 2:
            continue
        i = index(out[0], out[1])
        if i is None:
            sys.exit("%s encodes U+%04X outside its code space" % (charset, cp))
        sets.add_reverse(name, cp, i)


def scan_latin9():
    decode = decoder("ISO-8859-15")
    encode = encoder("ISO-8859-15")
    high = [decode(bytes([b])) for b in range(0xA0, 0xC0)]

    def byte_of(cp):
        out = encode(cp)
        return out[0] if out is not None else 0
    for b in list(range(0xA0)) + list(range(0xC0, 0x100)):
        if decode(bytes([b])) != b:
            sys.exit("ISO-8859-15 byte %02X is not its code point" % b)
    outside = [cp for cp in bmp() if encode(cp) is not None and
               not (cp < 0xA0 or 0xA0 <= cp <= 0xBF or 0xC0 <= cp <= 0xFF or
                    0x150 <= cp <= 0x17F or cp == 0x20AC)]
    if outside:
        sys.exit("ISO-8859-15 maps code points outside its encoder's tables")
    if encode(0x20AC) != b"\xa4":
        sys.exit("ISO-8859-15 euro sign moved")
    return (high, [byte_of(cp) for cp in range(0xA0, 0xC0)],
            [byte_of(cp) for cp in range(0x150, 0x180)])


# --- runs ---------------------------------------------------------------------

def build_runs(mapping):
    """Runs and list for a {key: value} mapping (see the module comment)."""
    keys = sorted(mapping)
    segments = []  # [first key, last key], values counting up
    for k in keys:
        if segments and segments[-1][1] == k - 1 and \
                mapping[k - 1] + 1 == mapping[k]:
            segments[-1][1] = k
        else:
            segments.append([k, k])
    runs, values = [], []
    pending = None  # listed run being gathered: [first, last]

    def close_pending():
        nonlocal pending
        if pending is not None:
            first, last = pending
            runs.append((first, last, len(values), 1))
            values.extend(mapping.get(k, NO_VALUE) for k in range(first, last + 1))
            pending = None
    for first, last in segments:
        if last - first + 1 >= MIN_COUNTED_RUN:
            close_pending()
            runs.append((first, last, mapping[first], 0))
        elif pending is not None and first - pending[1] - 1 <= MAX_HOLE:
            pending[1] = last
        else:
            close_pending()
            pending = [first, last]
    close_pending()
    for k, v in mapping.items():
        if v >= NO_VALUE or k > 0xFFFF:
            sys.exit("value or key out of range")
    return runs, values


def emit_map(out, name, mapping, stats):
    runs, values = build_runs(mapping)
    stats.append("%-22s %6d keys %5d runs %6d listed" %
                 (name, len(mapping), len(runs), len(values)))
    out.append("static const uint16_t k%sList[] = {" % name)
    if not values:
        values = [NO_VALUE]
    for i in range(0, len(values), 12):
        out.append("  " + ", ".join("0x%04X" % v for v in values[i:i + 12]) + ",")
    out.append("};")
    out.append("static const CodeRun k%sRuns[] = {" % name)
    for i in range(0, len(runs), 4):
        out.append("  " + " ".join("{0x%04X, 0x%04X, 0x%04X, %d}," % r
                                   for r in runs[i:i + 4]))
    out.append("};")
    out.append("const CodeMap %s = {k%sRuns, %d, k%sList};" %
               (name, name, len(runs), name))
    out.append("")


def emit_array(out, name, values):
    out.append("const uint16_t %s[%d] = {" % (name, len(values)))
    for i in range(0, len(values), 8):
        out.append("  " + ", ".join("0x%04X" % v for v in values[i:i + 8]) + ",")
    out.append("};")
    out.append("")


def main():
    sets = Sets()
    scan_korean(sets)
    scan_japanese(sets)
    scan_simple_double(sets, "Gb2312", "EUC-CN", range(0xA1, 0xFF), index94)
    scan_simple_double(sets, "Big5", "BIG5", range(0xA1, 0xFF), big5_index)
    latin_high, latin_a0, latin_150 = scan_latin9()

    out = [
        "// GENERATED by tools/gen_charset_tables.py from the C library's iconv "
        "(glibc %s: UHC, EUC-JP, SJIS, EUC-CN, BIG5, ISO-8859-15); DO NOT EDIT"
        % platform.libc_ver()[1],
        "// Command: python3 tools/gen_charset_tables.py > text/charset_tables.inc",
        "// <Set>Decode: linear index of a code -> code point; "
        "<Set>Encode: code point -> linear index.",
        "",
    ]
    stats = []
    for name in ["Ksx1001", "Cp949Ext1", "Cp949Ext2", "Jisx0201", "Jisx0208",
                 "Jisx0212", "Gb2312", "Big5"]:
        emit_map(out, name + "Decode", sets.forward[name], stats)
        emit_map(out, name + "Encode", sets.reverse[name], stats)
    emit_array(out, "Latin9Decode", latin_high)
    emit_array(out, "Latin9EncodeA0", latin_a0)
    emit_array(out, "Latin9Encode150", latin_150)
    sys.stdout.write("\n".join(out))
    for line in stats:
        print(line, file=sys.stderr)


if __name__ == "__main__":
    main()
