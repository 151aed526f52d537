// Eojul::SetString on arbitrary bytes, then RunWithEojul on the eojul with
// the option set the first two bytes choose (candidates kept, post passes,
// case and number punctuation, the two-stage route, offsets, user nouns).
// Every field of the result is read back.
#include <memory>
#include <string>

#include "fuzz/fuzz_support.h"

using namespace Quorel;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  return fuzz::StartOnSharedKnowledge();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  const uint8_t b0 = data[0];
  const uint8_t b1 = data[1];
  const std::string text(reinterpret_cast<const char*>(data) + 2, size - 2);

  std::unique_ptr<QR_Eojul> e(CreateEojul());
  std::unique_ptr<QR_Analyzer> a(
      CreateAnalyzer(&fuzz::SharedKnowledge(), e.get()));
  a->SetOption(0, b0 & 7);
  a->SetOption(17, (b0 >> 3) & 3);
  a->SetOption(1, (b0 >> 5) & 3);
  a->SetOption(3, (b0 >> 7) & 1);
  a->SetOption(20, (b0 >> 7) & 1);  // shares its bit with option 3
  for (int k = 0; k < 8; ++k) {
    static const int kSwitches[8] = {11, 12, 13, 14, 15, 16, 18, 19};
    a->SetOption(kSwitches[k], (b1 >> k) & 1);
  }
  e->SetString(text.c_str());
  a->RunWithEojul();
  fuzz::ReadEojul(*e);
  // The same eojul again, as a host re-running a token would.
  a->RunWithEojul();
  fuzz::ReadEojul(*e);
  e->Initialize(b0 & 1);
  fuzz::ReadEojul(*e);
  return 0;
}
