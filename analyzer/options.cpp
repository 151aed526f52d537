// The numbered options and the output-mode byte. Options 1 to 10 edit the
// index mask of the current eojul; options 11 to 22 only store their byte,
// which a pipeline step reads.
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"

namespace Quorel {

namespace {

// Sets or clears `bits` in the mask by the usual "1 or more" rule.
void SwitchMask(uint32_t& mask, uint32_t bits, int value) {
  if (value >= 1) {
    mask |= bits;
  } else {
    mask &= ~bits;
  }
}

}  // namespace

void MAnalyzer::SetOption(int option, int value) {
  if (static_cast<unsigned>(option) >= kExtendedOptionCount) return;
  tokenMemo.Forget();
  signed char byte = static_cast<signed char>(value & 0xFF);
  Eojul* e = CurrentEojul();
  uint32_t scratchMask = 0;
  uint32_t& mask = e != nullptr ? e->indexMask : scratchMask;
  switch (option) {
    case 1:
      options[1] = byte;
      SwitchMask(mask, Pos::FL, value);
      if (e != nullptr) e->minForeignLength = value >= 1 ? value : 0;
      break;
    case 2:
      options[2] = byte;
      SwitchMask(mask, Pos::SN, value);
      if (e != nullptr) e->minNumberLength = value >= 1 ? value : 0;
      break;
    case 3:
      options[3] = byte;
      SwitchMask(mask, 0x30000180, value);
      break;
    case 4:
      options[4] = byte;
      SwitchMask(mask, Pos::MM, value);
      break;
    case 5:
      options[5] = byte;
      SwitchMask(mask, Pos::MA, value);
      break;
    case 6:
      options[6] = byte;
      SwitchMask(mask, Pos::IC, value);
      break;
    case 7:
      // Switching off keeps the noun family bit.
      options[7] = byte;
      if (value >= 1) mask |= Pos::NNR; else mask &= ~0x10u;
      break;
    case 8:
      options[8] = byte;
      if (value >= 1) mask |= Pos::NNB; else mask &= ~0x02u;
      break;
    case 9:
      mask |= static_cast<uint32_t>(value);
      break;
    case 10: {
      // The noun family bit can't be cleared this way.
      uint32_t bits = static_cast<uint32_t>(value);
      if ((mask & Pos::N_) != 0 && (bits & Pos::N_) != 0) bits &= ~Pos::N_;
      mask &= ~bits;
      break;
    }
    case 12:
      options[12] = byte;
      if (e != nullptr) e->keepCase = value >= 1;
      break;
    case 13:
      options[13] = byte;
      if (e != nullptr) e->numberPunctuation = value >= 1;
      break;
    case 14:
    case 15:
      // The second stage needs candidates to compare.
      options[option] = byte;
      if (options[0] == 0) options[0] = 2;
      break;
    default:  // 0, 11, 16 to 22
      options[option] = byte;
      break;
  }
}

unsigned char MAnalyzer::SetExOption(int flags) {
  exOption = static_cast<unsigned char>(flags & 0xFF);
  return exOption;
}

}  // namespace Quorel
