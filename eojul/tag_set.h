// Part-of-speech names and masks.
//
// A part of speech is a 32-bit mask: the high bits name the family (N_, V_,
// J_, E_ ...), the low 16 bits the subclass. PosTable lists the 45 tag names
// in byte order with their masks; its row numbers are stored in knowledge
// files, so the order is part of the format. Several names share one mask
// (EC, EF and EM), so a name read in may come back as another.
// All tables are static and read-only.
#ifndef QRLSL_EOJUL_TAG_SET_H_
#define QRLSL_EOJUL_TAG_SET_H_

#include <cstdint>

#include "qrlsl/qr_pos.h"

namespace Quorel {

struct PosEntry {
  const char* name;
  uint32_t mask;
};

constexpr int kPosTableSize = 45;
constexpr int kPosHashSlots = 50;

extern const PosEntry PosTable[kPosTableSize];
// Reverse tables, mask to name, keyed by (mask >> 16) % 50 for masks without
// low bits, by (mask & 0xFFFF) % 50 otherwise. Empty slots: "-1", 0.
extern const PosEntry (&PosHighTable)[kPosHashSlots];
extern const PosEntry (&PosLowTable)[kPosHashSlots];
extern const PosEntry (&PosLow2Table)[kPosHashSlots];

// Masks of the tags the analyzers test most.
namespace Pos {
constexpr uint32_t N_ = 0x40000000;
constexpr uint32_t NNG = 0x40000001;
constexpr uint32_t NNB = 0x40000002;
constexpr uint32_t NNP = 0x40000004;
constexpr uint32_t NNU = 0x40000008;
constexpr uint32_t NNR = 0x40000010;
constexpr uint32_t NP = 0x40000020;
constexpr uint32_t NU = 0x40000040;
constexpr uint32_t NNI = 0x40000400;
constexpr uint32_t NNC = 0x40000800;
constexpr uint32_t NFG = 0x40001000;
constexpr uint32_t NFU = 0x40002000;
constexpr uint32_t V_ = 0x20000000;
constexpr uint32_t VV = 0x20000080;
constexpr uint32_t VA = 0x20000100;
constexpr uint32_t VX = 0x10000000;
constexpr uint32_t VC = 0x08000000;
constexpr uint32_t IC = 0x04000000;
constexpr uint32_t MA = 0x02000000;
constexpr uint32_t MM = 0x01000000;
constexpr uint32_t J_ = 0x00800000;
constexpr uint32_t JKG = 0x00800002;
constexpr uint32_t JX = 0x00800004;
constexpr uint32_t E_ = 0x00400000;
constexpr uint32_t EM = 0x00400600;
constexpr uint32_t EP = 0x00402000;
constexpr uint32_t ETM = 0x00400800;
constexpr uint32_t ETN = 0x00401000;
constexpr uint32_t XSD = 0x00200000;
constexpr uint32_t XP = 0x00100000;
constexpr uint32_t XSN = 0x00080000;
constexpr uint32_t FL = 0x00040000;
constexpr uint32_t SN = 0x00020000;
constexpr uint32_t SC = 0x00010000;
constexpr uint32_t UW = 0x00000000;
}  // namespace Pos

// Mask of a tag name; 0 when the name is not in PosTable.
uint32_t PosCodeOf(const char* name);
// Row of a tag name in PosTable; -1 when absent.
signed char PosRowOf(const char* name);
// Name of an exact mask; "" when no reverse table holds that mask.
const char* PosNameOf(uint32_t mask);

// The concrete QR_POS: thin calls on the functions above.
class TagSet : public QR_POS {
 public:
  TagSet() {}
  ~TagSet() override {}
  unsigned int GetPOSCode(const char* name) override;
  const char* GetPOSName(unsigned int mask) override;
};

}  // namespace Quorel

#endif  // QRLSL_EOJUL_TAG_SET_H_
