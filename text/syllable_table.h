// SyllableTable: one read-only SyllableRec per two-byte CP949 code of the
// Hangul rows (12,078 records, 906 of them blank), with each syllable's Johab
// letters, its rule bits and the links that undo sound changes. The analyzers
// replace a stem's last syllable by links[k] when flags bit k says it exists.
// Lookups take CP949 bytes and never reject non-Hangul input on their own.
#ifndef QRLSL_TEXT_SYLLABLE_TABLE_H_
#define QRLSL_TEXT_SYLLABLE_TABLE_H_

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Quorel {

// 64 bytes. Letters are 5-bit Johab values (jongseong 1 means no final); a
// blank record has code, letters and flags 0 and every link -1.
struct SyllableRec {
  unsigned char code[2];   // lead and trail byte
  unsigned char spare0;
  unsigned char choseong;
  unsigned char jungseong;
  unsigned char jongseong;
  unsigned char spare1[2];
  uint32_t flags;
  int16_t links[25];       // record numbers, -1 for none
  int16_t spare2;
};

constexpr int kSyllableCount = 12078;
constexpr int kSyllableLinkCount = 25;
constexpr int16_t kNoLink = -1;

// Johab letter values the analyzers compare against.
constexpr unsigned char kNoFinal = 1;

// Flag bits. Bit k (k below 24) owns links[k]; bit 26 owns links[24].
constexpr uint32_t kHasFinal = 0x1;            // link: without the final
constexpr uint32_t kAddSiot = 0x2;             // link: with final ㅅ
constexpr uint32_t kRieulToDigeut = 0x4;       // link: final ㄹ becomes ㄷ
constexpr uint32_t kAddBieup = 0x8;            // link: with final ㅂ
constexpr uint32_t kReuIrregular = 0x10;       // link: 르 or final ㅂ
constexpr uint32_t kYeoToA = 0x20;             // 여, 였 -> 아, 았
constexpr uint32_t kReoToEo = 0x40;            // 러, 렀 -> 어, 었
constexpr uint32_t kGeoNeoToA = 0x80;          // 거, 너 -> 아
constexpr uint32_t kAeToHieut = 0x100;         // link: plain vowel, final ㅎ
constexpr uint32_t kAddHieut = 0x200;          // link: with final ㅎ
constexpr uint32_t kAeToEo = 0x400;            // link: vowel ㅓ
constexpr uint32_t kToEu = 0x800;              // link: vowel ㅡ
constexpr uint32_t kAddRieul = 0x1000;         // link: with final ㄹ
constexpr uint32_t kPeoToPu = 0x2000;          // 퍼, 펐 -> 푸
constexpr uint32_t kDropSsangSiot = 0x4000;    // ㅏ ㅓ ㅕ: without ㅆ
constexpr uint32_t kAeEDropSsangSiot = 0x8000; // ㅐ ㅔ: without ㅆ
constexpr uint32_t kWaWoToOU = 0x10000;        // link: ㅗ or ㅜ
constexpr uint32_t kWaeToOe = 0x20000;         // link: ㅚ
constexpr uint32_t kYeoToI = 0x40000;          // link: ㅣ
constexpr uint32_t kOeToO = 0x80000;           // link: ㅗ
constexpr uint32_t kUiToEu = 0x100000;         // link: ㅡ
constexpr uint32_t kHaeToHa = 0x200000;        // 해, 했 -> 하
constexpr uint32_t kChiToHa = 0x400000;        // 치 -> 하
constexpr uint32_t kKeToHa = 0x800000;         // 케 -> 하
constexpr uint32_t kMarkSeo = 0x1000000;       // 서; no link
constexpr uint32_t kMarkYa = 0x2000000;        // 야; no link
constexpr uint32_t kHieutPair = 0x4000000;     // links[kHieutPairLink]
constexpr uint32_t kMarkYo = 0x8000000;        // 요; no link
constexpr int kHieutPairLink = 24;

extern const SyllableRec SyllableTable[];

// Row index, one entry per r = lead % 129: record = firstRecord +
// ((trail - firstTrail) & 255). Rows from 72 up are {0, 0}.
struct SyllableRow {
  int16_t firstRecord;
  unsigned char firstTrail;
};
constexpr int kSyllableRowCount = 129;
extern const SyllableRow (&SyllableRowIndex)[kSyllableRowCount];

// The row of every lead byte, SyllableRowIndex[lead % 129], so that the
// lookup in line needs no division.
struct SyllableLeadRows {
  SyllableRow rows[256];
};
extern const SyllableLeadRows SyllableRowsByLead;

// The record of bytes[0], bytes[1]; null only when the row arithmetic falls
// outside the table (or a lead below 0x81 meets a trail above 200). Literal
// on purpose: a lead below 0x81 with a small trail reads row `lead` (record
// `trail` from row 72 up), and a lead from 0xC9 reads row lead - 129.
inline const SyllableRec* SyllableAt(const char* bytes) {
  const unsigned lead = static_cast<unsigned char>(bytes[0]);
  const unsigned trail = static_cast<unsigned char>(bytes[1]);
  if (lead < 129 && trail > 200) return nullptr;
  const SyllableRow& row = SyllableRowsByLead.rows[lead];
  const short n = static_cast<short>(row.firstRecord + ((trail - row.firstTrail) & 255));
  if (n < 0 || n >= kSyllableCount) return nullptr;
  return &SyllableTable[n];
}

// The record of the last two bytes of a NUL-terminated text; null when the
// text is null or shorter than 2 bytes.
inline const SyllableRec* LastSyllable(const char* text) {
  if (text == nullptr) return nullptr;
  const size_t length = std::strlen(text);
  if (length < 2) return nullptr;
  return SyllableAt(text + length - 2);
}
// The same for a text whose length (up to its first NUL) the caller knows.
inline const SyllableRec* LastSyllable(const char* text, int32_t length) {
  if (text == nullptr || length < 2) return nullptr;
  return SyllableAt(text + length - 2);
}
// Record n; null when n is negative or not below kSyllableCount.
inline const SyllableRec* SyllableByNumber(short n) {
  if (n < 0 || n >= kSyllableCount) return nullptr;
  return &SyllableTable[n];
}
// The record number of a record of SyllableTable (what links hold).
inline int SyllableNumber(const SyllableRec* rec) {
  return static_cast<int>(rec - SyllableTable);
}

}  // namespace Quorel

#endif  // QRLSL_TEXT_SYLLABLE_TABLE_H_
