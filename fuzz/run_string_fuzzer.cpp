// RunWithString on arbitrary bytes. The first three bytes choose the option
// set (candidates kept, every pipeline option, index-word options, raw
// output, printing, tagging mode); the rest is the text. Every field of the
// sentence is read back, before and after tagging.
#include <memory>
#include <string>

#include "fuzz/fuzz_support.h"

using namespace Quorel;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  return fuzz::StartOnSharedKnowledge();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 3) return 0;
  const uint8_t b0 = data[0];
  const uint8_t b1 = data[1];
  const uint8_t b2 = data[2];
  const std::string text(reinterpret_cast<const char*>(data) + 3, size - 3);

  std::unique_ptr<QR_Analyzer> a(CreateAnalyzer(&fuzz::SharedKnowledge()));
  // Bit 1 keeps the sentence; bit 2 prints each eojul; bit 4 tagging mode.
  a->SetExOption(1 | (b0 & 0x10 ? 2 : 0) | (b0 & 0x20 ? 4 : 0));
  a->SetOption(0, b0 & 7);
  for (int k = 0; k < 8; ++k) {
    static const int kSwitches[8] = {11, 12, 13, 14, 15, 16, 18, 19};
    a->SetOption(kSwitches[k], (b1 >> k) & 1);
  }
  a->SetOption(17, b2 & 3);
  a->SetOption(1, (b2 >> 2) & 3);
  a->SetOption(2, (b2 >> 4) & 3);
  for (int option = 3; option <= 8; ++option) a->SetOption(option, (b2 >> 6) & 1);
  // The options beyond the catalogue share their bits with others.
  a->SetOption(20, (b2 >> 6) & 1);
  a->SetOption(21, (b0 >> 3) & 1);
  a->SetOption(22, (b2 >> 7) & 1);
  a->SetOption(b2 & 0x80 ? 9 : 10, 0x00070000 | (b0 << 8));
  if (b0 & 0x40) a->SetRawOutput();

  a->RunWithString(text.c_str());
  fuzz::ReadSentence(*a);
  a->Tagging((b0 >> 3) & 1);
  fuzz::ReadSentence(*a);
  if (b0 & 0x80) {
    // A second run on the same analyzer starts from what the first left.
    a->RunWithString(text.c_str());
    fuzz::ReadSentence(*a);
  }
  return 0;
}
