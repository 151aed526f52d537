// Every source-dictionary loader on arbitrary file contents. The first byte
// chooses the file that the rest of the input replaces in a copy of the fuzz
// knowledge's sources: one of the josa/eomi, main word, frequency and list
// files, the pre-analysis file, or a user-noun file read on top. The
// knowledge is compiled, the compiled file must load back (whatever the
// loaders made is a sound image), and the loaded knowledge is exercised.
#include <memory>
#include <string>

#include "fuzz/fuzz_support.h"

using namespace Quorel;

namespace {

const char* const kFiles[] = {
    "em.dic",  "js.dic", "nnb.dic", "nng.dic", "np.dic", "nni.dic",
    "nnp.dic", "nu.dic", "vv.dic",  "va.dic",  "ma.dic", "mm.dic",
    "ic.dic",  "vx.dic", "divInfo_freq_sorted.txt",
    "posInfo_freq_sorted.txt", "xp.dic", "xsn.dic", "xsnxsn.dic",
    "conj.dic", "preanal.sys.dic", "user.dic",
};
constexpr int kFileCount = sizeof kFiles / sizeof kFiles[0];
constexpr int kUserFile = kFileCount - 1;

const fuzz::ScratchDir* sources = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::Quiet();
  auto* dir = new fuzz::ScratchDir();
  dir->CopyFiles(fuzz::KnowledgeDir());
  sources = dir;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const int choice = data[0] % kFileCount;
  const std::string name = kFiles[choice];
  const std::string original =
      fuzz::ReadFile(sources->Path() + "/" + name);
  sources->Write(name, data + 1, size - 1);

  fuzz::ScratchDir out;
  {
    Dictionary built(false);
    fuzz::Require(built.CompileKnowledge(sources->Path().c_str(),
                                         out.Path().c_str()),
                  "the knowledge did not compile");
  }
  Dictionary loaded(false);
  fuzz::Require(loaded.LoadKnowledge(out.Path().c_str(), true, true) == 1,
                "a compiled file of loaded sources was refused");
  if (choice == kUserFile) {
    loaded.LoadUserNoun(sources->Path().c_str(), "user.dic", false);
  }
  fuzz::Exercise(loaded, out);

  sources->Write(name, original);
  return 0;
}
