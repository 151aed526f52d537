// The POS tables and their lookups. PosTable is sorted by name in byte order
// so that names are found by binary search; masks go back to names through
// three small hash tables without collision lists.
#include "eojul/tag_set.h"

#include <cstring>

namespace Quorel {

const PosEntry PosTable[kPosTableSize] = {
    {"EC", 0x00400600},  {"EF", 0x00400600},  {"EM", 0x00400600},
    {"EP", 0x00402000},  {"ETM", 0x00400800}, {"ETN", 0x00401000},
    {"E_", 0x00400000},  {"FL", 0x00040000},  {"IC", 0x04000000},
    {"JC", 0x00800000},  {"JK", 0x00800000},  {"JKG", 0x00800002},
    {"JX", 0x00800004},  {"J_", 0x00800000},  {"MA", 0x02000000},
    {"MAG", 0x02000000}, {"MAJ", 0x02000000}, {"MM", 0x01000000},
    {"NFG", 0x40001000}, {"NFU", 0x40002000}, {"NNB", 0x40000002},
    {"NNC", 0x40000800}, {"NNG", 0x40000001}, {"NNI", 0x40000400},
    {"NNP", 0x40000004}, {"NNR", 0x40000010}, {"NNU", 0x40000008},
    {"NP", 0x40000020},  {"NU", 0x40000040},  {"N_", 0x40000000},
    {"SC", 0x00010000},  {"SN", 0x00020000},  {"SNC", 0x00020000},
    {"SND", 0x00020000}, {"UW", 0x00000000},  {"VA", 0x20000100},
    {"VC", 0x08000000},  {"VV", 0x20000080},  {"VX", 0x10000000},
    {"V_", 0x20000000},  {"XP", 0x00100000},  {"XSA", 0x00200000},
    {"XSD", 0x00200000}, {"XSN", 0x00080000}, {"XSV", 0x00200000},
};

namespace {

// Fills a 50-slot reverse table: every slot "-1"/0 but the listed ones.
struct SlotEntry {
  int slot;
  PosEntry entry;
};

template <int N>
struct ReverseTable {
  PosEntry slots[kPosHashSlots];
  constexpr explicit ReverseTable(const SlotEntry (&listed)[N]) : slots() {
    for (int i = 0; i < kPosHashSlots; ++i) slots[i] = {"-1", 0};
    for (int i = 0; i < N; ++i) slots[listed[i].slot] = listed[i].entry;
  }
};

constexpr SlotEntry kHighListed[] = {
    {0, {"UW", 0x00000000}},  {1, {"SC", 0x00010000}},
    {2, {"SN", 0x00020000}},  {4, {"FL", 0x00040000}},
    {6, {"MM", 0x01000000}},  {8, {"XSN", 0x00080000}},
    {12, {"MA", 0x02000000}}, {14, {"E_", 0x00400000}},
    {16, {"XP", 0x00100000}}, {24, {"IC", 0x04000000}},
    {28, {"J_", 0x00800000}}, {32, {"XSD", 0x00200000}},
    {34, {"N_", 0x40000000}}, {42, {"V_", 0x20000000}},
    {46, {"VX", 0x10000000}}, {48, {"VC", 0x08000000}},
};

constexpr SlotEntry kLowListed[] = {
    {1, {"NNG", 0x40000001}},  {2, {"NNB", 0x40000002}},
    {4, {"NNP", 0x40000004}},  {6, {"VA", 0x20000100}},
    {8, {"NNU", 0x40000008}},  {12, {"EM", 0x00400200}},
    {14, {"NU", 0x40000040}},  {16, {"NNR", 0x40000010}},
    {18, {"MA", 0x02008000}},  {24, {"EM", 0x00400400}},
    {28, {"VV", 0x20000080}},  {32, {"NP", 0x40000020}},
    {34, {"MA", 0x02004000}},  {36, {"EM", 0x00400600}},
    {42, {"EP", 0x00402000}},  {46, {"ETN", 0x00401000}},
    {48, {"ETM", 0x00400800}},
};

constexpr SlotEntry kLow2Listed[] = {
    {1, {"J_", 0x00800001}},  {2, {"J_", 0x00800002}},
    {4, {"J_", 0x00800004}},  {6, {"XSD", 0x00200100}},
    {8, {"J_", 0x00800008}},  {12, {"XSD", 0x00200200}},
    {14, {"SN", 0x00020040}}, {18, {"SN", 0x00028000}},
    {24, {"NNI", 0x40000400}}, {32, {"SN", 0x00028040}},
    {42, {"NFU", 0x40002000}}, {46, {"NFG", 0x40001000}},
    {48, {"NNC", 0x40000800}},
};

constexpr ReverseTable<16> kHigh(kHighListed);
constexpr ReverseTable<17> kLow(kLowListed);
constexpr ReverseTable<13> kLow2(kLow2Listed);

// Binary search of PosTable by byte order; the row or -1.
int FindRow(const char* name) {
  if (name == nullptr) return -1;
  int low = 0;
  int high = kPosTableSize - 1;
  while (low <= high) {
    int middle = (low + high) / 2;
    int cmp = std::strcmp(PosTable[middle].name, name);
    if (cmp == 0) return middle;
    if (cmp > 0) {
      high = middle - 1;
    } else {
      low = middle + 1;
    }
  }
  return -1;
}

}  // namespace

const PosEntry (&PosHighTable)[kPosHashSlots] = kHigh.slots;
const PosEntry (&PosLowTable)[kPosHashSlots] = kLow.slots;
const PosEntry (&PosLow2Table)[kPosHashSlots] = kLow2.slots;

uint32_t PosCodeOf(const char* name) {
  int row = FindRow(name);
  return row < 0 ? 0 : PosTable[row].mask;
}

signed char PosRowOf(const char* name) {
  return static_cast<signed char>(FindRow(name));
}

const char* PosNameOf(uint32_t mask) {
  if ((mask & 0xFFFF) != 0) {
    int slot = (mask & 0xFFFF) % kPosHashSlots;
    if (PosLowTable[slot].mask == mask) return PosLowTable[slot].name;
    if (PosLow2Table[slot].mask == mask) return PosLow2Table[slot].name;
    return "";
  }
  int slot = (mask >> 16) % kPosHashSlots;
  if (PosHighTable[slot].mask == mask) return PosHighTable[slot].name;
  return "";
}

unsigned int TagSet::GetPOSCode(const char* name) { return PosCodeOf(name); }

const char* TagSet::GetPOSName(unsigned int mask) { return PosNameOf(mask); }

QR_POS* CreatePOS() { return new TagSet(); }

}  // namespace Quorel
