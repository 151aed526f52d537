#include "knowledge/dictionary.h"

#include <cstring>
#include <string>

#include "knowledge/knowledge_io.h"

namespace Quorel {

namespace {

// The jamo endings every knowledge carries: an eomi of class 5, 9 or 17 that
// a stem absorbs as its final consonant.
struct JamoEnding {
  const char* text;  // CP949
  uint32_t bits;
  uint16_t attach;
  uint8_t type;
};

const JamoEnding kJamoEndings[3] = {
    {"\xA4\xA4", 0x400800, 3, 5},   // ㄴ
    {"\xA4\xA9", 0x400800, 3, 9},   // ㄹ
    {"\xA4\xB1", 0x401000, 3, 17},  // ㅁ
};

struct SourceFile {
  const char* name;
  const char* tag;
};

const SourceFile kMainFiles[] = {
    {"nnb.dic", "NNB"}, {"nng.dic", "NNG"}, {"np.dic", "NP"},
    {"nni.dic", "NNI"}, {"nnp.dic", "NNP"}, {"nu.dic", "NU"},
    {"vv.dic", "VV"},   {"va.dic", "VA"},   {"ma.dic", "MA"},
    {"mm.dic", "MM"},   {"ic.dic", "IC"},   {"vx.dic", "VX"},
};

const SourceFile kListFiles[] = {
    {"xp.dic", "XP"},
    {"xsn.dic", "XSN"},
    {"xsnxsn.dic", "XSNXSN"},
    {"conj.dic", "CONJ"},
};

}  // namespace

Dictionary::Dictionary(bool autoLoad) {
  endianProbe = 0x01020304;
  unsigned char first = 0;
  std::memcpy(&first, &endianProbe, 1);
  if (first == 4) {
    littleEndian = 1;
  } else if (first == 1) {
    littleEndian = 0;
  } else {
    Report("sizeof(int) is not 4 byte.");
  }
  if (autoLoad) LoadKnowledge("./knowledge", true, true);
}

Dictionary::~Dictionary() {
  delete[] divInfo;
  delete[] posInfo;
}

int Dictionary::LoadKnowledge(const char* path, bool fromCompiledFile,
                              bool withPreAnalysis) {
  ++generation;
  // The arrays of an earlier load are not reused.
  delete[] divInfo;
  delete[] posInfo;
  divInfo = nullptr;
  posInfo = nullptr;
  if (fromCompiledFile) {
    const int loaded =
        LoadCompiled(JoinPath(path, "qrl.klg").c_str(), withPreAnalysis);
    IndexLookupTries();
    return loaded;
  }
  // The order of the steps fixes how the tries come out.
  if (jeTrie.Create(kTrieSize, kTrieSize, kTrieSize, kTrieSize) < 0) {
    Report("Can't create trie. So dictonaries are not created...");
    return 0;
  }
  jeInfos.push_back(JosaEomiTrieInfo());
  LoadJosaEomi(JoinPath(path, "em.dic").c_str(), "E_");
  LoadJosaEomi(JoinPath(path, "js.dic").c_str(), "J_");
  AddJamoEndings();
  if (mainTrie.Create(kTrieSize, kTrieSize, kTrieSize, kTrieSize) < 0) {
    Report("Can't create trie. So dictonaries are not created...");
    return 0;
  }
  mainInfos.push_back(MainTrieInfo());
  for (const SourceFile& f : kMainFiles) {
    LoadMainDic(JoinPath(path, f.name).c_str(), f.tag);
  }
  LoadDivInfo(JoinPath(path, "divInfo_freq_sorted.txt").c_str());
  LoadPosInfo(JoinPath(path, "posInfo_freq_sorted.txt").c_str());
  for (const SourceFile& f : kListFiles) {
    LoadList(JoinPath(path, f.name).c_str(), f.tag);
  }
  IndexLookupTries();
  return 1;
}

void Dictionary::IndexLookupTries() {
  ++generation;
  for (QR_DaTrie* trie : {&mainTrie, &jeTrie, &xpTrie, &xsnTrie, &xsnxsnTrie,
                          &conjTrie, &preAnalTrie}) {
    trie->BuildReadIndexes();
  }
}

void Dictionary::AddJamoEndings() {
  for (const JamoEnding& e : kJamoEndings) {
    int32_t index = jePool.Add(e.bits, e.attach, e.type, e.text,
                               static_cast<int32_t>(std::strlen(e.text)));
    JosaEomiTrieInfo record;
    if (e.type == 5) record.eomiInfo5 = index;
    if (e.type == 9) record.eomiInfo9 = index;
    if (e.type == 17) record.eomiInfo17 = index;
    jamoEomiInfos.push_back(record);
  }
}

bool Dictionary::CompileKnowledge(const char* path, const char* outputPath) {
  if (LoadKnowledge(path, false, true) < 1) return false;
  LoadPreAnalysis(path, "preanal.sys.dic", true);
  return SaveCompiled(outputPath) >= 1;
}

int Dictionary::LoadEojulRules(const char* path) {
  ++generation;
  return LoadEojulRuleFile(*this, path);
}

int Dictionary::LoadGroupRules(const char* path) {
  ++generation;
  return LoadGroupRuleFile(*this, path);
}

int Dictionary::LoadTagLists(const char* path) {
  ++generation;
  return LoadTagListFiles(*this, path);
}

void Dictionary::SetTaggerWeights(double w1, double w2, double w3, double w4,
                                  double w5) {
  ++generation;
  weight1 = w1;
  weight2 = w2;
  weight3 = w3;
  weight4 = w4;
  weight5 = w5;
}

QR_Knowledge* CreateKnowledge(bool autoLoad) {
  return new Dictionary(autoLoad);
}

}  // namespace Quorel
