#include "fuzz/fuzz_support.h"

#include <stdlib.h>

#include <stdio.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <vector>

#include "text/charset.h"

namespace Quorel {
namespace fuzz {

namespace {

const char* const kSamples[] = {
    "나는 학교에 갔다. 하늘이 맑다!",
    "3,000원짜리 사과를 2개 샀습니다... 1.5kg",
    "ABC뉴스의 \"기사\"를 읽었다 (2024.1.5) 새말이 ㄱㄴㄷ",
    "漢字와 한글을 ~~ 먹었는데요?! 그리고 예쁜 꽃들이 피었다",
};

// The sample texts in CP949, made once.
const std::vector<std::string>& Samples() {
  static const std::vector<std::string> samples = [] {
    std::vector<std::string> out;
    for (const char* text : kSamples) out.push_back(Cp949(text));
    return out;
  }();
  return samples;
}

void Lookups(const Dictionary& k, const std::string& word) {
  for (size_t start = 0; start < word.size(); ++start) {
    const char* key = word.c_str() + start;
    SearchInfo si;
    k.SearchMain(key, si);
    std::vector<SearchInfo> hits;
    k.SearchAll(key, hits, 0, 0, 0, 1, 0, 0);
    k.SearchAll(key, hits, 0, 0, 1, 0, 1, 1);
    SearchJEInfo sjei;
    k.SearchJE(key, sjei);
    for (int type : {0, 1, 5, 9, 17, 19}) {
      jeInfo je;
      k.GetJEInfo(je, sjei, type);
    }
    k.IsXP(key);
    k.IsXSN(key);
    k.IsXSNXSN(key);
    k.IsCONJ(key);
    int32_t freq = 0;
    k.GetDivFreq(key, freq);
    PosInfoRec rec;
    k.GetPosFreq(key, rec);
  }
}

}  // namespace

const std::string& KnowledgeDir() {
  static const std::string dir = [] {
    const char* env = getenv("QRLSL_FUZZ_KNOWLEDGE");
    return std::string(env != nullptr && *env != 0 ? env
                                                   : QRLSL_FUZZ_KNOWLEDGE);
  }();
  return dir;
}

void Quiet() {
  if (getenv("QRLSL_FUZZ_VERBOSE") != nullptr) return;
  // The sanitizers write to descriptor 2 directly; only the streams the
  // library writes through are turned away.
  if (std::FILE* null = std::fopen("/dev/null", "w")) stderr = null;
  std::cerr.rdbuf(nullptr);
  std::cout.rdbuf(nullptr);
}

Dictionary& SharedKnowledge() {
  static Dictionary* knowledge = [] {
    auto* k = new Dictionary(false);
    if (k->LoadKnowledge(KnowledgeDir().c_str(), true, true) != 1) {
      dprintf(2, "fuzz: no compiled knowledge in %s\n",
                   KnowledgeDir().c_str());
      std::abort();
    }
    return k;
  }();
  return *knowledge;
}

int StartOnSharedKnowledge() {
  Quiet();
  SharedKnowledge();
  return 0;
}

std::string Cp949(const char* utf8) {
  WideChar* wide = ToWide(utf8, "UTF-8");
  char* bytes = FromWide(wide, "CP949");
  std::string out = bytes != nullptr ? bytes : "";
  FreeWide(wide);
  FreeBytes(bytes);
  return out;
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

ScratchDir::ScratchDir() {
  std::string pattern =
      (std::filesystem::temp_directory_path() / "qrlsl_fuzz_XXXXXX").string();
  if (mkdtemp(&pattern[0]) == nullptr) std::abort();
  path = pattern;
}

ScratchDir::~ScratchDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

void ScratchDir::Write(const std::string& name,
                       const std::string& bytes) const {
  Write(name, reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

void ScratchDir::Write(const std::string& name, const uint8_t* data,
                       size_t size) const {
  const std::filesystem::path file = std::filesystem::path(path) / name;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(data),
            static_cast<std::streamsize>(size));
}

void ReadEojul(QR_Eojul& e) {
  volatile size_t sink = std::string(e.GetString()).size();
  for (int c = 0; c < e.GetListSize(); ++c) {
    sink = sink + static_cast<size_t>(e.GetScore(c) > 0);
    for (int m = 0; m < e.GetCount(c); ++m) {
      sink = sink + std::string(e.GetLexicon(c, m)).size();
      sink = sink + std::string(e.GetStrPOS(c, m)).size();
      sink = sink + e.GetPOS(c, m) + e.IsIndexWord(c, m);
      sink = sink + static_cast<size_t>(e.GetStartOffset(c, m)) +
             static_cast<size_t>(e.GetEndOffset(c, m));
    }
  }
  sink = sink + static_cast<size_t>(e.BestCandidate());
}

void ReadSentence(QR_Analyzer& a) {
  const int n = a.GetEojulCountInSentence();
  for (int i = 0; i < n; ++i) {
    QR_Eojul* e = a.GetEojulInSentence(static_cast<unsigned>(i));
    Require(e != nullptr, "a sentence element is missing");
    ReadEojul(*e);
    a.GetEojulOffsetInSentence(static_cast<unsigned>(i));
  }
}

void AnalyseSamples(QR_Knowledge& k) {
  std::unique_ptr<QR_Analyzer> a(CreateAnalyzer(&k));
  a->SetExOption(1);
  a->SetOption(0, 3);
  for (const std::string& text : Samples()) {
    a->RunWithString(text.c_str());
    ReadSentence(*a);
    a->Tagging(0);
    ReadSentence(*a);
    a->RunWithString(text.c_str());
    a->Tagging(1);
    ReadSentence(*a);
  }
}

void Exercise(Dictionary& k, const ScratchDir& dir) {
  for (const std::string& text : Samples()) {
    std::istringstream words(text);
    std::string word;
    while (words >> word) Lookups(k, word);
  }
  dir.Write("users.txt", Cp949("새말\t2\n@학교\t2\nabc\t3\n"));
  dir.Write("pre.txt", Cp949("갔다\t가/VV+았/EP+다/EF\n"
                             "하늘이\t하늘/NNG+이/JKS@하/VV+늘/EC\n"));
  k.LoadUserNoun(dir.Path().c_str(), "users.txt", false);
  k.LoadPreAnalysis(dir.Path().c_str(), "pre.txt", true);
  AnalyseSamples(k);
}

void Require(bool ok, const char* what) {
  if (ok) return;
  dprintf(2, "fuzz: %s\n", what);
  std::abort();
}

}  // namespace fuzz
}  // namespace Quorel
