// Every source-dictionary loader on arbitrary file contents. The first byte
// chooses the file that the rest of the input replaces in a small knowledge
// directory: one of the josa/eomi, main word, frequency and list files, the
// pre-analysis file, or a user-noun file read on top. The knowledge is
// compiled, the compiled file must load back (whatever the loaders made is a
// sound image), and the loaded knowledge is exercised.
#include <memory>
#include <string>

#include "fuzz/fuzz_support.h"

using namespace Quorel;

namespace {

struct SourceFile {
  const char* name;
  const char* content;  // UTF-8; the small directory the inputs change
};

const SourceFile kFiles[] = {
    {"em.dic", "다\t다/EF 1\n는\t는/ETM 0 5#는/EF 0\n었\t었/EP 0\n"
               "ㄴ다\tㄴ다/EF 2 0\n고\t고/EC 1\n"},
    {"js.dic", "가\t이/JKS 1#가/JKS 2\n에\t에/JKB 4\n에서\t에서/JKB 0 5\n"
               "는\t은/JX 2#는/JX 1\n를\t을/JKO 2#를/JKO 1\n"},
    {"nnb.dic", "개\t1\n"},
    {"nng.dic", "학교\n@사과\n하늘\n생활\n학교생활\n"},
    {"np.dic", "나\n그것\n"},
    {"nni.dic", "세계\n"},
    {"nnp.dic", "대한민국\t대한 민국\n"},
    {"nu.dic", "하나\t1\n"},
    {"vv.dic", "먹\n가\n"},
    {"va.dic", "맑\n예쁘\n"},
    {"ma.dic", "아주\n"},
    {"mm.dic", "새\n"},
    {"ic.dic", "아\n"},
    {"vx.dic", "보\n"},
    {"divInfo_freq_sorted.txt", "학교 생활\t150\n"},
    {"posInfo_freq_sorted.txt", "학교\t10\t20\t300\n"},
    {"xp.dic", "제\n"},
    {"xsn.dic", "들\n님\n"},
    {"xsnxsn.dic", "들님\n"},
    {"conj.dic", "그리고\n"},
    {"preanal.sys.dic", "갔다\t가/VV+았/EP+다/EF\n"},
    {"user.dic", "새말\t2\n"},
};
constexpr int kFileCount = sizeof kFiles / sizeof kFiles[0];
constexpr int kUserFile = kFileCount - 1;

const fuzz::ScratchDir* sources = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::Quiet();
  auto* dir = new fuzz::ScratchDir();
  for (const SourceFile& f : kFiles) dir->Write(f.name, fuzz::Cp949(f.content));
  sources = dir;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const int choice = data[0] % kFileCount;
  const std::string name = kFiles[choice].name;
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

  sources->Write(name, fuzz::Cp949(kFiles[choice].content));
  return 0;
}
