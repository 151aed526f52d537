#include "noun_divider/divider_helpers.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "text/charset.h"

namespace Quorel {
namespace testing_divider {

namespace {

const char* const kKnowledgeFiles[] = {
    "em.dic", "js.dic", "nnb.dic", "nng.dic", "np.dic", "nni.dic",
    "nnp.dic", "nu.dic", "vv.dic", "va.dic", "ma.dic", "mm.dic",
    "ic.dic", "vx.dic", "divInfo_freq_sorted.txt",
    "posInfo_freq_sorted.txt", "xp.dic", "xsn.dic", "xsnxsn.dic",
    "conj.dic"};

}  // namespace

std::unique_ptr<Knowledge> LoadKnowledge(const SourceFiles& files) {
  auto k = std::make_unique<Knowledge>();
  for (const char* name : kKnowledgeFiles) {
    auto found = files.find(name);
    k->dir.Write(name, found != files.end() ? found->second : "");
  }
  k->dictionary.LoadKnowledge(k->dir.Path().c_str(), false, true);
  return k;
}

Knowledge* SmallKnowledgeTest::knowledge = nullptr;

const SourceFiles& SmallFiles() {
  static const SourceFiles files = {
      {"js.dic",
       "의\t의/JKG 0\n"
       "과\t과/JC 1\n"
       "와\t와/JC 2\n"
       "를\t를/JK 2\n"
       "을\t을/JK 1\n"
       "에\t에/JK 0\n"
       "도\t도/JX 0\n"
       "부터\t부터/JX 0\n"
       "까지\t까지/JX 0\n"},
      {"nng.dic",
       "국가\n경제\n정책\n경기\n관광\n공사\n관광공사\n책\n학교\n"},
      {"np.dic", "그\n"},
      {"nnb.dic", "개\t1\n"},
      {"nnp.dic", "대한민국\t22@4\n신한국인들\tX3Y\n"},
      {"xsn.dic", "들\n씩\n"},
      {"xp.dic", "신\n"},
      {"conj.dic", "및\n"},
      {"divInfo_freq_sorted.txt", "가 경\t500\n제 정\t300\n"},
      {"posInfo_freq_sorted.txt",
       "국가\t1000\t0\t0\n경제\t0\t500\t0\n정책\t0\t0\t2000\n"},
  };
  return files;
}

namespace {

void RenderElements(std::string& out, const char* p, const char* end) {
  bool first = true;
  for (; p < end && *p != '@';) {
    if (!first) out += ",";
    first = false;
    const char c = *p;
    if (std::string("BCDIJNPUXY").find(c) != std::string::npos && p + 1 < end) {
      out += c;
      out += std::to_string(static_cast<unsigned char>(p[1]));
      p += 2;
    } else {
      out += std::to_string(static_cast<unsigned char>(c));
      ++p;
    }
  }
}

}  // namespace

std::string Render(const char* output) {
  if (output[0] == '$' || output[0] == '%') return std::string(1, output[0]);
  const char* end = output + 1;
  while (end < output + kDivOutputSize && *end != '$') ++end;
  if (end == output + kDivOutputSize) return "<open>";
  std::string out =
      std::to_string(static_cast<unsigned char>(output[0])) + ":";
  for (const char* p = output + 1; p < end;) {
    const char* stop = p;
    while (stop < end && *stop != '@') ++stop;
    RenderElements(out, p, stop);
    p = stop;
    if (p < end) {
      out += "@";
      ++p;
    }
  }
  return out;
}

std::vector<int> LiveRows(const NounDivider& d) {
  std::vector<int> live;
  for (int k = 0; k < d.rowCount; ++k) {
    if (!d.IsDead(k)) live.push_back(k);
  }
  return live;
}

std::string RowShape(const NounDivider& d, int row) {
  std::string out;
  const DivRow& r = d.rows[row];
  for (int j = 0; j < r.elementCount && j < kDivElements; ++j) {
    if (j > 0) out += ",";
    if (r.elements[j].letter != ' ') out += r.elements[j].letter;
    out += std::to_string(r.elements[j].length);
  }
  return out;
}

}  // namespace testing_divider
}  // namespace Quorel
