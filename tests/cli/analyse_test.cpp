// The analysing side of the qrl command, run as a separate process: usage
// and errors, inputs, and the tsv, json and index forms read back exactly.
// Known analyses come from a pre-analysis file, so the results do not
// depend on the dictionaries.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/json_helpers.h"
#include "cli/run_helpers.h"

namespace clitest {
namespace {

// Pre-analysed eojuls, UTF-8; the tags are ones whose names print back as
// written. The last form holds a quote and a backslash for the JSON escapes.
const char kPreAnalysis[] =
    "학교\t학교/NNG\n"
    "서울\t서울/NNP@서/NNG+울/NNG\n"
    "아주\t아주/MA\n"
    "그\t그/NP@그/MM\n"
    "먹다\t먹/VV+다/EP\n"
    "인용\t인\"용\\/NNG\n";

class AnalyseTest : public testing::Test {
 protected:
  AnalyseTest() {
    tiny = TinyKnowledge(dir);
    preAnalysis = dir.Write("pre.txt", kPreAnalysis);
  }

  // qrl on a knowledge of one word plus the pre-analysis file, then `args`.
  RunResult Analyse(std::vector<std::string> args, const std::string& input) {
    std::vector<std::string> all = {"-k", tiny, "-p", preAnalysis};
    all.insert(all.end(), args.begin(), args.end());
    return RunQrl(all, input, dir.Path());
  }

  // The json lines of a run, each parsed; fails the test on a bad line.
  std::vector<JsonValue> Json(std::vector<std::string> args,
                              const std::string& input) {
    args.insert(args.begin(), {"-f", "json"});
    RunResult run = Analyse(args, input);
    EXPECT_EQ(0, run.status) << run.err;
    return JsonLines(run.out);
  }

  ScratchDir dir;
  std::string tiny;
  std::string preAnalysis;
};

TEST_F(AnalyseTest, HelpExitsZeroOnStandardOutput) {
  for (const char* flag : {"--help", "-h"}) {
    RunResult run = RunQrl({flag}, "", dir.Path());
    EXPECT_EQ(0, run.status) << flag;
    EXPECT_NE(std::string::npos, run.out.find("Usage: qrl")) << flag;
    EXPECT_EQ("", run.err) << flag;
  }
}

TEST_F(AnalyseTest, BadUsageExitsNonZeroWithAMessage) {
  const std::vector<std::vector<std::string>> bad = {
      {"--bogus"},         {"-x"},           {"-f", "yaml"},
      {"-f"},              {"-n", "two"},    {"-n", "-1"},
      {"-t", "2"},         {"-o", "23=1"},   {"-o", "3"},
      {"-o", "a=1"},       {"--knowledge"},  {"--candidates=x"},
      {"compile"},         {"scramble"},     {"stopword", "file"},
      {"synonym", "file"}};
  for (const auto& args : bad) {
    RunResult run = RunQrl(args, "학교\n", dir.Path());
    EXPECT_NE(0, run.status) << args[0];
    EXPECT_NE(std::string::npos, run.err.find("qrl: ")) << args[0];
    EXPECT_EQ("", run.out) << args[0];
  }
}

TEST_F(AnalyseTest, UnusableKnowledgeOrInputIsAnError) {
  RunResult run = RunQrl({"-k", dir.Path() + "/nowhere"}, "학교\n", dir.Path());
  EXPECT_EQ(1, run.status);
  EXPECT_NE(std::string::npos, run.err.find("nowhere"));

  run = Analyse({"-p", dir.Path() + "/missing.txt"}, "학교\n");
  EXPECT_EQ(1, run.status);
  EXPECT_NE(std::string::npos, run.err.find("missing.txt"));

  // A missing input is reported; the others are still analysed.
  std::string good = dir.Write("good.txt", "학교\n");
  run = Analyse({"-f", "tsv", dir.Path() + "/absent.txt", good}, "");
  EXPECT_EQ(1, run.status);
  EXPECT_NE(std::string::npos, run.err.find("absent.txt"));
  EXPECT_EQ("학교\t학교/NNG\n", run.out);
}

TEST_F(AnalyseTest, StandardInputAndFilesGiveTheSameResults) {
  const std::string text = "서울 학교\n아주 그\n";
  std::string file = dir.Write("input.txt", text);
  RunResult fromStdin = Analyse({"-f", "tsv"}, text);
  RunResult fromFile = Analyse({"-f", "tsv", file}, "");
  RunResult fromDash = Analyse({"-f", "tsv", "-"}, text);
  ASSERT_EQ(0, fromStdin.status) << fromStdin.err;
  EXPECT_EQ(4u, Lines(fromStdin.out).size());
  EXPECT_EQ(fromStdin.out, fromFile.out);
  EXPECT_EQ(fromStdin.out, fromDash.out);

  // Several inputs in the order given, "-" among them.
  RunResult mixed = Analyse({"-f", "tsv", file, "-", file}, "먹다\n");
  EXPECT_EQ(fromFile.out + "먹다\t먹/VV+다/EP\n" + fromFile.out, mixed.out);
}

TEST_F(AnalyseTest, TsvRoundTripsKoreanExactly) {
  RunResult run = Analyse({"-f", "tsv", "-n", "0"}, "서울 학교 먹다 그 인용 하늘이\n");
  ASSERT_EQ(0, run.status) << run.err;
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : Lines(run.out)) rows.push_back(Fields(line));
  const std::vector<std::vector<std::string>> expected = {
      {"서울", "서울/NNP", "서/NNG+울/NNG"},
      {"학교", "학교/NNG"},
      {"먹다", "먹/VV+다/EP"},
      {"그", "그/NP", "그/MM"},
      {"인용", "인\"용\\/NNG"},
      {"하늘이", "하늘이/NNR"}};  // unknown: the surface stands alone
  EXPECT_EQ(expected, rows);
}

TEST_F(AnalyseTest, JsonLinesParseAndCarryEveryField) {
  std::vector<JsonValue> eojuls = Json({"-n", "0"}, "서울 인용 하늘이\n");
  ASSERT_EQ(3u, eojuls.size());

  const JsonValue& seoul = eojuls[0];
  EXPECT_EQ("서울", seoul["surface"].text);
  EXPECT_EQ(1, seoul["line"].number);
  EXPECT_EQ(0, seoul["offset"].number);
  ASSERT_EQ(2u, seoul["candidates"].items.size());
  const JsonValue& first = seoul["candidates"][0];
  EXPECT_EQ(JsonValue::Kind::kNumber, first["score"].kind);
  ASSERT_EQ(1u, first["morphemes"].items.size());
  const JsonValue& proper = first["morphemes"][0];
  EXPECT_EQ("서울", proper["lexicon"].text);
  EXPECT_EQ("NNP", proper["tag"].text);
  EXPECT_EQ(0x40000004, proper["pos"].number);
  EXPECT_TRUE(proper["index"].boolean);  // nouns are index words by default
  for (const char* key : {"start", "end"}) {
    EXPECT_EQ(JsonValue::Kind::kNumber, proper[key].kind) << key;
  }
  const JsonValue& split = seoul["candidates"][1]["morphemes"];
  ASSERT_EQ(2u, split.items.size());
  EXPECT_EQ("서", split[0]["lexicon"].text);
  EXPECT_EQ("울", split[1]["lexicon"].text);

  // Offsets count CP949 bytes: two syllables and a blank.
  EXPECT_EQ(5, eojuls[1]["offset"].number);
  EXPECT_EQ("인\"용\\", eojuls[1]["candidates"][0]["morphemes"][0]["lexicon"].text);

  const JsonValue& unknown = eojuls[2]["candidates"][0]["morphemes"][0];
  EXPECT_EQ("하늘이", unknown["lexicon"].text);
  EXPECT_EQ("NNR", unknown["tag"].text);
  EXPECT_FALSE(unknown["index"].boolean);  // unregistered nouns are off
}

TEST_F(AnalyseTest, JsonEscapesAndKeepsRawKorean) {
  RunResult run = Analyse({"-f", "json"}, "인용\n");
  ASSERT_EQ(0, run.status);
  EXPECT_NE(std::string::npos, run.out.find("\"lexicon\":\"인\\\"용\\\\\""));
}

TEST_F(AnalyseTest, NumberedOptionsReachTheAnalyzer) {
  // Option 18 counts offsets in characters instead of bytes.
  std::vector<JsonValue> bytes = Json({}, "서울 학교 아주\n");
  std::vector<JsonValue> chars = Json({"-o", "18=1"}, "서울 학교 아주\n");
  ASSERT_EQ(3u, bytes.size());
  ASSERT_EQ(3u, chars.size());
  EXPECT_EQ(10, bytes[2]["offset"].number);
  EXPECT_EQ(6, chars[2]["offset"].number);

  // Option 5 makes adverbs index words.
  EXPECT_FALSE(bytes[2]["candidates"][0]["morphemes"][0]["index"].boolean);
  std::vector<JsonValue> adverbs = Json({"--option=5=1"}, "아주\n");
  ASSERT_EQ(1u, adverbs.size());
  EXPECT_TRUE(adverbs[0]["candidates"][0]["morphemes"][0]["index"].boolean);
}

TEST_F(AnalyseTest, CandidateCountKeepsTheBestByScore) {
  std::vector<JsonValue> all = Json({"-n", "0"}, "서울 그\n");
  std::vector<JsonValue> best = Json({"-n1"}, "서울 그\n");
  ASSERT_EQ(2u, all.size());
  ASSERT_EQ(2u, best.size());
  for (size_t i = 0; i < all.size(); ++i) {
    const auto& candidates = all[i]["candidates"].items;
    ASSERT_EQ(2u, candidates.size());
    // Among equal scores the later stored candidate counts as the best.
    size_t top = candidates[1]["score"].number >= candidates[0]["score"].number ? 1 : 0;
    ASSERT_EQ(1u, best[i]["candidates"].items.size());
    EXPECT_EQ(candidates[top]["morphemes"][0]["lexicon"].text,
              best[i]["candidates"][0]["morphemes"][0]["lexicon"].text);
    EXPECT_EQ(candidates[top]["morphemes"][0]["tag"].text,
              best[i]["candidates"][0]["morphemes"][0]["tag"].text);
  }
}

TEST_F(AnalyseTest, IndexWordsFollowTheIndexMask) {
  RunResult run = Analyse({"-i", "-n", "0"}, "서울 먹다 아주 하늘이\n");
  ASSERT_EQ(0, run.status) << run.err;
  // Each word once, in the order of the candidates.
  EXPECT_EQ("서울\t서울\t서\t울\n먹다\n아주\n하늘이\n", run.out);

  run = Analyse({"--format", "index", "-o", "3=1", "-o", "5=1", "-o", "7=1",
                 "-n", "0"},
                "먹다 아주 하늘이\n");
  EXPECT_EQ("먹다\t먹\n아주\t아주\n하늘이\t하늘이\n", run.out);
}

TEST_F(AnalyseTest, PrintFormsAreTheEojulsOwn) {
  RunResult full = Analyse({"-f", "full", "-n", "0"}, "서울\n");
  ASSERT_EQ(0, full.status);
  std::vector<std::string> lines = Lines(full.out);
  ASSERT_EQ(4u, lines.size());
  EXPECT_EQ("[서울]", lines[0]);
  EXPECT_EQ("Offset : 0", lines[1]);
  EXPECT_EQ(0u, lines[2].find("\t0: 서울/NNP\t"));
  EXPECT_EQ(0u, lines[3].find("\t1: 서/NNG + 울/NNG\t"));

  RunResult compact = Analyse({"-fcompact", "-n0"}, "서울\n");
  EXPECT_EQ("서울\tOffset : 0\n서울/NNP@서/NNG+울/NNG\n", compact.out);
}

TEST_F(AnalyseTest, BlankLinesAndLineEndsAddNothing) {
  RunResult run = Analyse({"-f", "tsv"}, "학교\r\n\n\r\n   \n아주\n");
  ASSERT_EQ(0, run.status);
  EXPECT_EQ("학교\t학교/NNG\n아주\t아주/MA\n", run.out);
}

TEST_F(AnalyseTest, OverlongLinesAreAnalysedWhole) {
  // Far beyond the analyzer's line buffer.
  const int kCount = 15000;
  std::string line;
  for (int i = 0; i < kCount; ++i) line += i % 2 == 0 ? "학교 " : "아주 ";
  RunResult run = Analyse({"-f", "tsv"}, line + "\n");
  ASSERT_EQ(0, run.status);
  std::vector<std::string> rows = Lines(run.out);
  ASSERT_EQ(static_cast<size_t>(kCount), rows.size());
  for (int i = 0; i < kCount; ++i) {
    ASSERT_EQ(i % 2 == 0 ? "학교\t학교/NNG" : "아주\t아주/MA", rows[i]) << i;
  }
}

TEST_F(AnalyseTest, TaggingKeepsOneResultPerEojul) {
  for (const char* mode : {"0", "1"}) {
    std::vector<JsonValue> eojuls = Json({"-t", mode}, "서울 학교 그\n");
    ASSERT_EQ(3u, eojuls.size()) << mode;
    EXPECT_EQ("학교", eojuls[1]["surface"].text) << mode;
    EXPECT_GE(eojuls[1]["candidates"].items.size(), 1u) << mode;
  }
}

TEST_F(AnalyseTest, Cp949UserFilesWorkLikeUtf8Ones) {
  std::string cp949 = dir.Write("pre949.txt", ToCp949(kPreAnalysis));
  RunResult run = RunQrl({"-k", tiny, "-p", cp949, "-f", "tsv", "-n", "0"},
                         "서울 인용\n", dir.Path());
  EXPECT_EQ(0, run.status) << run.err;
  EXPECT_EQ("서울\t서울/NNP\t서/NNG+울/NNG\n인용\t인\"용\\/NNG\n", run.out);
}

TEST_F(AnalyseTest, UserNounFilesLoadOrFail) {
  std::string nouns = dir.Write("nouns.txt", "쿼렐\t0\n");
  RunResult run = Analyse({"-u", nouns, "-f", "tsv"}, "쿼렐\n");
  EXPECT_EQ(0, run.status) << run.err;
  EXPECT_EQ(0u, run.out.find("쿼렐\t"));

  run = Analyse({"--user-nouns", dir.Path() + "/none.txt"}, "쿼렐\n");
  EXPECT_EQ(1, run.status);
  EXPECT_NE(std::string::npos, run.err.find("none.txt"));
}

TEST_F(AnalyseTest, ProgressBarOnlyForLongFilesOnATerminal) {
  std::string line = "학교 아주 그 서울\n";
  std::string text;
  while (text.size() < (3u << 19)) text += line;  // 1.5 MB
  std::string big = dir.Write("big.txt", text);
  std::string small = dir.Write("small.txt", line);
  const std::string& empty = tiny;

  // Into a file or a pipe, standard error stays clean.
  RunResult run = RunQrl({"-k", empty, "-f", "tsv", big}, "", dir.Path());
  EXPECT_EQ(0, run.status);
  EXPECT_EQ("", run.err);

  std::string shown;
  if (!RunOnTerminal({"-k", empty, "-f", "tsv", big}, dir.Path(), shown)) {
    GTEST_SKIP() << "no pseudo terminal";
  }
  EXPECT_NE(std::string::npos, shown.find("big.txt ["));
  size_t full = shown.rfind("100%");
  ASSERT_NE(std::string::npos, full);
  // The bar's line is cleared at the end.
  EXPECT_NE(std::string::npos, shown.find("\r\033[K", full));

  ASSERT_TRUE(RunOnTerminal({"-k", empty, small}, dir.Path(), shown));
  EXPECT_EQ(std::string::npos, shown.find('%'));
  ASSERT_TRUE(RunOnTerminal({"-k", empty, "--no-progress", big}, dir.Path(), shown));
  EXPECT_EQ(std::string::npos, shown.find('%'));
}

TEST_F(AnalyseTest, KnowledgeThatDoesNotLoadIsAnErrorNamingDirectoryAndReason) {
  std::filesystem::create_directories(dir.Path() + "/empty");
  dir.Write("sources/nng.dic", "학교\n");  // UTF-8: sources, not knowledge
  dir.Write("sources/em.dic", "다\t다/EF 0\n");
  const struct {
    std::vector<std::string> args;
    const char* named;
    const char* reason;
  } rows[] = {
      {{"-k", dir.Path() + "/empty"}, "/empty", "holds no word"},
      {{"-k", dir.Path() + "/sources"}, "/sources", "in UTF-8"},
      {{"-k", dir.Path() + "/nowhere"}, "/nowhere", "no knowledge directory"},
  };
  for (const auto& row : rows) {
    RunResult run = RunQrl(row.args, "학교\n", dir.Path());
    EXPECT_EQ(1, run.status) << row.named;
    EXPECT_EQ("", run.out) << row.named;
    EXPECT_NE(std::string::npos, run.err.find(row.named)) << run.err;
    EXPECT_NE(std::string::npos, run.err.find(row.reason)) << run.err;
  }
  std::filesystem::path home = std::filesystem::path(QRL_BINARY).parent_path();
  for (const auto& beside : {home / "knowledge", home / ".." / "knowledge"}) {
    if (std::filesystem::exists(beside / "qrl.klg")) {
      GTEST_SKIP() << "knowledge found beside the executable";
    }
  }
  RunResult run = RunQrl({"-f", "tsv"}, "학교\n", dir.Path());
  EXPECT_EQ(1, run.status);
  EXPECT_NE(std::string::npos, run.err.find("no knowledge found")) << run.err;
}

TEST_F(AnalyseTest, TheDefaultIsTheTaggersChoiceWithASentenceEnd) {
  RunResult run = Analyse({}, "서울 그\n\n아주\n");
  ASSERT_EQ(0, run.status) << run.err;
  // One analysis per eojul, chosen by the rules of mode 0, and EOS after
  // every input line, an empty one too.
  const std::vector<std::string> lines = Lines(run.out);
  ASSERT_EQ(6u, lines.size()) << run.out;
  EXPECT_EQ(2u, Fields(lines[0]).size());
  EXPECT_EQ("서울", Fields(lines[0])[0]);
  EXPECT_EQ(2u, Fields(lines[1]).size());
  EXPECT_EQ("EOS", lines[2]);
  EXPECT_EQ("EOS", lines[3]);
  EXPECT_EQ("아주\t아주/MA", lines[4]);
  EXPECT_EQ("EOS", lines[5]);
  // -n asks for candidates instead; -t tags them again.
  EXPECT_EQ(3u, Fields(Lines(Analyse({"-n", "0"}, "서울\n").out)[0]).size());
  EXPECT_EQ(2u, Fields(Lines(Analyse({"-n", "0", "-t", "0"}, "서울\n").out)[0]).size());
}

TEST_F(AnalyseTest, ShortOptionsTakeAttachedValuesAndTheVersionIsShown) {
  EXPECT_EQ(Analyse({"-f", "tsv", "-n", "1"}, "서울 그\n").out,
            Analyse({"-ftsv", "-n1"}, "서울 그\n").out);
  RunResult version = RunQrl({"--version"}, "", dir.Path());
  EXPECT_EQ(0, version.status);
  EXPECT_EQ(0u, version.out.find("qrl "));
}

TEST_F(AnalyseTest, AFolderIsWalkedAndCp949InputIsRecognised) {
  dir.Write("texts/b/two.txt", ToCp949("아주\n"));  // CP949
  dir.Write("texts/a.txt", "학교\n");
  RunResult run = Analyse({"-f", "tsv", dir.Path() + "/texts"}, "");
  EXPECT_EQ(0, run.status) << run.err;
  // The files in the order of their paths.
  EXPECT_EQ("학교\t학교/NNG\n아주\t아주/MA\n", run.out);
  EXPECT_NE(std::string::npos, run.err.find("two.txt is read as CP949")) << run.err;
  // Told otherwise, the CP949 bytes are invalid UTF-8.
  run = Analyse({"-f", "tsv", "--encoding", "utf-8", dir.Path() + "/texts/b"}, "");
  EXPECT_NE(std::string::npos, run.err.find("invalid UTF-8")) << run.err;
}

TEST_F(AnalyseTest, OutputThatCannotBeWrittenIsAnError) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  const std::string input = dir.Write("in.txt", "학교\n");
  // Standard output on a full device: the shell of the test sends it there.
  const int status = std::system(("cd " + dir.Path() + " && " + QRL_BINARY + " -k " +
                                  tiny + " " + input + " > /dev/full 2> err.txt")
                                     .c_str());
  EXPECT_NE(0, status);
  EXPECT_NE(std::string::npos, dir.Read("err.txt").find("can't write the output"));
}

TEST_F(AnalyseTest, RejectedUserLinesAreReportedInUtf8WithTheirLineNumbers) {
  const std::string nouns = dir.Write("nouns.txt", "쿼렐\t0\n쿼렐렐\tX\n학교\t0\n@!!\n");
  for (const std::string& file : {nouns, dir.Write("nouns949.txt", ToCp949(ReadFile(nouns)))}) {
    RunResult run = Analyse({"-u", file}, "쿼렐\n");
    EXPECT_EQ(0, run.status) << run.err;
    EXPECT_NE(std::string::npos, run.err.find(":2: An usernoun entry with wrong information : 쿼렐렐"))
        << run.err;
    EXPECT_NE(std::string::npos, run.err.find(":4: ")) << run.err;
    EXPECT_NE(std::string::npos, run.err.find(": 2 lines rejected")) << run.err;
  }
}

}  // namespace
}  // namespace clitest
