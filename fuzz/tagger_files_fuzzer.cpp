// The tagger's rule and frequency loaders on arbitrary file contents. The
// first byte chooses which file of sinfo/ the rest of the input replaces
// (erule.klg, grule.klg, tag_list.txt, word_list.txt, taglist.klg,
// wordlist.klg) beside small well-formed versions of the others; the rules
// and tables are loaded into a copy of the fuzz knowledge, which then tags
// the sample texts in both modes.
#include <memory>
#include <string>

#include "fuzz/fuzz_support.h"

using namespace Quorel;

namespace {

struct SinfoFile {
  const char* name;
  const char* content;  // UTF-8
};

const SinfoFile kFiles[] = {
    {"erule.klg", "나는\t0\n학교에\t1\n"},
    {"grule.klg", "[1][NP]\t@[1][VV]\t[1][NNG]\nF@#2+[$][NNG:!VV][:학교:]\n"},
    {"tag_list.txt", "FOS\nEOS\nNNG\nNP+J_\nVV+EM\nNNG+J_\n"},
    {"word_list.txt", "나\t10\n학교\t4\n"},
    {"taglist.klg", "NNG\t2\nFOS\tEOS\t1000\nFOS\tVV+EM\t30\n"
                    "VV+EM\t1\nNNG\tEOS\t5\n"},
    {"wordlist.klg", "나-NP+J_\t1\nFOS\tNNG\t5\n학교-NNG+J_\t0\n"},
};
constexpr int kFileCount = sizeof kFiles / sizeof kFiles[0];

const fuzz::ScratchDir* base = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::Quiet();
  auto* dir = new fuzz::ScratchDir();
  for (const SinfoFile& f : kFiles) {
    dir->Write(std::string("sinfo/") + f.name, fuzz::Cp949(f.content));
  }
  base = dir;
  fuzz::SharedKnowledge();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const SinfoFile& file = kFiles[data[0] % kFileCount];
  const std::string name = std::string("sinfo/") + file.name;
  base->Write(name, data + 1, size - 1);

  Dictionary k(false);
  fuzz::Require(k.LoadKnowledge(fuzz::KnowledgeDir().c_str(), true, true) == 1,
                "the fuzz knowledge did not load");
  const char* path = base->Path().c_str();
  k.LoadEojulRules(path);
  k.LoadGroupRules(path);
  k.LoadTagLists(path);
  k.SetTaggerWeights(1.0, 2.0, 0.5, 8.8, 50.0);
  fuzz::AnalyseSamples(k);

  base->Write(name, fuzz::Cp949(file.content));
  return 0;
}
