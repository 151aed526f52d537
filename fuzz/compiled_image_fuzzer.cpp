// LoadCompiled on damaged copies of a real compiled file (the fuzz
// knowledge's qrl.klg). The input is a program of damage: a first byte whose
// bit 0 asks for the pre-analysis section and bit 1 for a cut, then, with
// the cut, 3 bytes of the kept length (a fraction of the file); then groups
// of 4 bytes: an offset (3 bytes, taken modulo the length) and a byte XOR-ed
// in there. A file that still loads is exercised as a host would use it.
#include <string>

#include "fuzz/fuzz_support.h"

using namespace Quorel;

namespace {

const std::string* image = nullptr;

uint32_t Take24(const uint8_t* p) {
  return static_cast<uint32_t>(p[0]) | static_cast<uint32_t>(p[1]) << 8 |
         static_cast<uint32_t>(p[2]) << 16;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::Quiet();
  image = new std::string(fuzz::ReadFile(fuzz::KnowledgeDir() + "/qrl.klg"));
  fuzz::Require(image->size() > 67, "no compiled file in the fuzz knowledge");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  std::string bytes = *image;
  const bool withPreAnalysis = (data[0] & 1) != 0;
  size_t at = 1;
  if ((data[0] & 2) != 0 && size >= 4) {
    const uint64_t fraction = Take24(data + 1);
    bytes.resize(static_cast<size_t>(bytes.size() * fraction >> 24));
    at = 4;
  }
  for (; at + 4 <= size && !bytes.empty(); at += 4) {
    bytes[Take24(data + at) % bytes.size()] ^= static_cast<char>(data[at + 3]);
  }
  fuzz::ScratchDir dir;
  dir.Write("qrl.klg", bytes);
  Dictionary k(false);
  if (k.LoadKnowledge(dir.Path().c_str(), true, withPreAnalysis) == 1) {
    fuzz::Exercise(k, dir);
  }
  return 0;
}
