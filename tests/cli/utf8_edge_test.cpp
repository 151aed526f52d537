// The UTF-8 edge of the qrl command, run as a separate process: no character
// of the input is lost, surfaces are written as the input has them, offsets
// count the input's code points and bytes, and invalid UTF-8 is reported.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/json_helpers.h"
#include "cli/run_helpers.h"

namespace clitest {
namespace {

// The code points of valid UTF-8.
std::u32string CodePoints(const std::string& utf8) {
  std::u32string out;
  for (size_t i = 0; i < utf8.size();) {
    const unsigned char lead = static_cast<unsigned char>(utf8[i]);
    const size_t n = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t c = n == 1 ? lead : lead & (0x7F >> n);
    for (size_t k = 1; k < n; ++k) c = (c << 6) | (utf8[i + k] & 0x3F);
    out += c;
    i += n;
  }
  return out;
}

std::string WithoutBlanks(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ') continue;
    if (text.compare(i, 2, "\xC2\xA0") == 0) {  // no-break space
      ++i;
      continue;
    }
    out += text[i];
  }
  return out;
}

class Utf8EdgeTest : public testing::Test {
 protected:
  Utf8EdgeTest() : tiny(TinyKnowledge(dir)) {}

  RunResult Run(std::vector<std::string> args, const std::string& input) {
    args.insert(args.begin(), {"-k", tiny});
    return RunQrl(args, input, dir.Path());
  }
  std::vector<JsonValue> Json(std::vector<std::string> args, const std::string& input) {
    args.insert(args.begin(), {"-f", "json"});
    RunResult run = Run(args, input);
    EXPECT_EQ(0, run.status) << run.err;
    return JsonLines(run.out);
  }

  ScratchDir dir;
  std::string tiny;
};

// Lines whose characters CP949 lacks in part: emoji, Hanja beyond CP949,
// old jamo, accented Latin, a no-break space; with case and Hanja that the
// analysis reads otherwise.
const char* const kLines[] = {
    "나는 😀 학교에 갔다",
    "𠀀𠀁 ᄀᆞᆫ café",
    "GPU 漢字와 TV를",
    "좋아😀요 👍🏽 e\xCC\x81t\xC3\xA9",
    "a\xC2\xA0" "b ①② ¾",
};

TEST_F(Utf8EdgeTest, EveryCharacterComesBackInTheSurfacesAsWritten) {
  for (const char* line : kLines) {
    for (const char* format : {"tsv", "index", "text"}) {
      RunResult run = Run({"-f", format}, std::string(line) + "\n");
      ASSERT_EQ(0, run.status) << line << run.err;
      std::string surfaces;
      for (const std::string& row : Lines(run.out)) {
        if (row != "EOS") surfaces += Fields(row)[0];
      }
      EXPECT_EQ(WithoutBlanks(line), surfaces) << line << " " << format;
    }
  }
}

TEST_F(Utf8EdgeTest, SurfacesKeepCaseAndHanjaWhileLexiconsAreTheAnalysis) {
  RunResult run = Run({"-f", "tsv"}, "GPU 😀\n");
  ASSERT_EQ(0, run.status) << run.err;
  const std::vector<std::string> rows = Lines(run.out);
  ASSERT_EQ(2u, rows.size());
  // Latin is lower-cased by the analysis (option 12 off), not the surface.
  EXPECT_EQ((std::vector<std::string>{"GPU", "gpu/FL"}), Fields(rows[0]));
  // A symbol CP949 lacks is a token of its own, written as it is.
  EXPECT_EQ((std::vector<std::string>{"😀", "😀/SC"}), Fields(rows[1]));
}

TEST_F(Utf8EdgeTest, JsonOffsetsCutTheSurfaceOutOfTheLine) {
  for (const char* line : kLines) {
    for (const std::vector<std::string>& options :
         {std::vector<std::string>{}, {"-o", "18=1"}, {"-t", "0"}}) {
      const std::vector<JsonValue> eojuls = Json(options, std::string(line) + "\n");
      const std::u32string points = CodePoints(line);
      const std::string text = line;
      ASSERT_FALSE(eojuls.empty()) << line;
      for (const JsonValue& e : eojuls) {
        const size_t start = static_cast<size_t>(e["start"].number);
        const size_t end = static_cast<size_t>(e["end"].number);
        const size_t byteStart = static_cast<size_t>(e["byte_start"].number);
        const size_t byteEnd = static_cast<size_t>(e["byte_end"].number);
        ASSERT_LE(start, end);
        ASSERT_LE(end, points.size());
        EXPECT_EQ(CodePoints(e["surface"].text), points.substr(start, end - start)) << line;
        EXPECT_EQ(e["surface"].text, text.substr(byteStart, byteEnd - byteStart)) << line;
        for (const JsonValue& c : e["candidates"].items) {
          for (const JsonValue& m : c["morphemes"].items) {
            EXPECT_LE(start, m["start"].number) << line;
            EXPECT_LE(m["start"].number, m["end"].number) << line;
            EXPECT_LE(m["end"].number, end) << line;
            EXPECT_LE(byteStart, m["byte_start"].number) << line;
            EXPECT_LE(m["byte_end"].number, byteEnd) << line;
          }
        }
      }
    }
  }
}

TEST_F(Utf8EdgeTest, MorphemeOffsetsFollowTheMorphemes) {
  const std::vector<JsonValue> eojuls = Json({}, "xyz 😀abc\n");
  ASSERT_EQ(3u, eojuls.size());
  const JsonValue& abc = eojuls[2]["candidates"][0]["morphemes"][0];
  EXPECT_EQ("abc", abc["lexicon"].text);
  EXPECT_EQ(5, abc["start"].number);
  EXPECT_EQ(8, abc["end"].number);
  EXPECT_EQ(8, abc["byte_start"].number);  // the emoji takes four bytes
  EXPECT_EQ(11, abc["byte_end"].number);
}

TEST_F(Utf8EdgeTest, OffsetsOfALongLineCountFromItsStart) {
  // Far beyond the analyzer's line buffer, so it is analysed in pieces.
  const int kCount = 12000;
  std::string line;
  for (int i = 0; i < kCount; ++i) line += "가나다 😀 ";
  RunResult run = Run({"-f", "json"}, line + "\n");
  ASSERT_EQ(0, run.status) << run.err;
  const std::vector<std::string> rows = Lines(run.out);
  ASSERT_EQ(static_cast<size_t>(2 * kCount), rows.size());
  JsonValue last;
  ASSERT_TRUE(ParseJson(rows.back(), last));
  EXPECT_EQ("😀", last["surface"].text);
  EXPECT_EQ(6 * kCount - 2, last["start"].number);       // 6 characters a pair
  EXPECT_EQ(15 * kCount - 5, last["byte_start"].number);  // 15 bytes a pair
}

TEST_F(Utf8EdgeTest, InvalidUtf8IsReadAsReplacementWithAWarningOrStopsWhenStrict) {
  const std::string input = "학교\nab\xFF" "c \xC3\n아주\n";
  RunResult run = Run({"-f", "tsv"}, input);
  EXPECT_EQ(0, run.status);
  EXPECT_NE(std::string::npos, run.err.find("qrl: -:2: byte 3: invalid UTF-8")) << run.err;
  std::string surfaces;
  for (const std::string& row : Lines(run.out)) surfaces += Fields(row)[0];
  EXPECT_EQ("학교ab\xEF\xBF\xBD" "c\xEF\xBF\xBD아주", surfaces);

  RunResult strict = Run({"-f", "tsv", "--strict"}, input);
  EXPECT_NE(0, strict.status);
  EXPECT_NE(std::string::npos, strict.err.find("qrl: -:2: byte 3: invalid UTF-8")) << strict.err;
  // The lines before it are written; nothing after.
  EXPECT_EQ("학교\t학교/NNR\n", strict.out);
}

}  // namespace
}  // namespace clitest
