// LoadCompiled on arbitrary bytes as qrl.klg (the first byte chooses
// whether the pre-analysis section is read). A file that loads must answer
// lookups, take user nouns and pre-analysis, and analyse the samples
// without any read or write outside its arrays.
#include <string>

#include "fuzz/fuzz_support.h"

using namespace Quorel;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::Quiet();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  fuzz::ScratchDir dir;
  dir.Write("qrl.klg", data + 1, size - 1);
  Dictionary k(false);
  if (k.LoadKnowledge(dir.Path().c_str(), true, (data[0] & 1) != 0) == 1) {
    fuzz::Exercise(k, dir);
  }
  return 0;
}
