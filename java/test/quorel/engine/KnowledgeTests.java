package quorel.engine;

import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.HashSet;
import java.util.List;
import java.util.Set;

/** Loading through the bridge and known morphemes read back in Java. */
public final class KnowledgeTests {
  private KnowledgeTests() {}

  private static final int NNG = 0x40000001;
  private static final int NNP = 0x40000004;
  private static final int VV = 0x20000080;
  private static final int JKG = 0x00800002;

  public static void loadResultsOfFilesThatAreMissing() throws Exception {
    Path dir = Fixture.newDirectory();
    try (QR_Knowledge knowledge = new QR_Knowledge()) {
      knowledge.loadKnowledge(dir.toString(), false, false);
      Check.equal(0, knowledge.loadPreAnalysis(dir.toString(), "absent.txt", false),
          "missing pre-analysis file");
      Check.equal(0, knowledge.loadUserNoun(dir.toString(), "absent.txt", false),
          "missing user noun file");
      knowledge.loadTaggerInfo(dir.toString());
      Check.isTrue(knowledge.loadKnowledge(dir.toString(), true, true) <= 0,
          "no compiled file in an empty directory");
    } finally {
      Fixture.remove(dir);
    }
  }

  public static void aKnowledgeThatDoesNotLoadThrowsNamingDirectoryAndReason()
      throws Exception {
    Path dir = Fixture.newDirectory();
    try {
      Path empty = Files.createDirectories(dir.resolve("empty"));
      Path sources = Files.createDirectories(dir.resolve("sources"));
      Files.write(sources.resolve("nng.dic"), "학교\n".getBytes(StandardCharsets.UTF_8));
      Object[][] rows = {
          {empty, "holds no word"},
          {sources, "in UTF-8"},
          {dir.resolve("nowhere"), "no knowledge directory"},
      };
      for (Object[] row : rows) {
        Path directory = (Path) row[0];
        try (QR_Knowledge knowledge = new QR_Knowledge()) {
          knowledge.load(directory);
          throw new AssertionError("loaded " + directory);
        } catch (IllegalStateException expected) {
          Check.isTrue(expected.getMessage().contains(directory.toString()),
              "message names the directory: " + expected.getMessage());
          Check.isTrue(expected.getMessage().contains((String) row[1]),
              "message gives the reason: " + expected.getMessage());
        }
      }
      // Source dictionaries in CP949 load, with their pre-analysis.
      Fixture.writeCp949(dir, "nng.dic", List.of("학교"));
      Fixture.writeCp949(dir, "preanal.sys.dic", List.of("먹은\t먹/VV+은/ETM"));
      try (QR_Knowledge knowledge = new QR_Knowledge();
           QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
        knowledge.load(dir);
        Check.equal("먹/VV", analyzer.analyze("먹은").get(0).candidates().get(0)
            .morphemes().get(0).toString(), "pre-analysis loaded");
      }
    } finally {
      Fixture.remove(dir);
    }
  }

  public static void userFilesLoadInUtf8AndCp949AsTheCommandLoadsThem()
      throws Exception {
    Path dir = Fixture.newDirectory();
    try {
      Fixture.writeCp949(dir, "nng.dic", List.of("학교"));
      Path utf8 = dir.resolve("nouns-utf8.txt");
      Files.write(utf8, "쿼렐\t0\n".getBytes(StandardCharsets.UTF_8));
      Path cp949 = Fixture.writeCp949(dir, "nouns-cp949.txt", List.of("큐렐\t0"));
      try (QR_Knowledge knowledge = new QR_Knowledge();
           QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
        knowledge.load(dir);
        knowledge.addUserNouns(utf8);
        knowledge.addUserNouns(cp949);
        for (String word : new String[] {"쿼렐", "큐렐"}) {
          Candidate first = analyzer.analyze(word).get(0).candidates().get(0);
          Check.equal("NNU", first.morphemes().get(0).tag(), word + " is a user noun");
        }
      }
    } finally {
      Fixture.remove(dir);
    }
  }

  public static void aTextBeyondTheLineLimitIsAnalysedInPieces() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      // 100,000 CP949 bytes: far beyond what one run analyses.
      StringBuilder text = new StringBuilder();
      final int count = 20000;
      for (int i = 0; i < count; ++i) {
        text.append(i % 2 == 0 ? "먹은 " : "사과의 ");
      }
      List<AnalyzedEojul> eojuls = analyzer.analyze(text.toString());
      Check.equal(count, eojuls.size(), "every eojul");
      for (int i = 0; i < count; i += 997) {
        AnalyzedEojul e = eojuls.get(i);
        Check.equal(i % 2 == 0 ? "먹은" : "사과의", e.surface(), "surface " + i);
        // 5 CP949 bytes for 먹은 and its blank, 7 for 사과의 and its blank.
        Check.equal((i / 2) * 12 + (i % 2) * 5, e.offset(), "offset " + i);
      }
    }
  }

  public static void preAnalysedEojulsComeBackExactly() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      List<AnalyzedEojul> eojuls = analyzer.analyze("먹은 사과의");
      Check.equal(2, eojuls.size(), "eojuls");
      AnalyzedEojul eaten = eojuls.get(0);
      Check.equal("먹은", eaten.surface(), "surface");
      Check.equal(List.of(new Morpheme("먹", "VV", VV, false),
          new Morpheme("은", "ETM", 0x00400800, false)),
          eaten.candidates().get(0).morphemes(), "먹은");
      AnalyzedEojul apple = eojuls.get(1);
      Check.equal(5, apple.offset(), "offset of the second eojul");
      Check.equal(2, apple.candidates().size(), "two readings");
      Set<Integer> nouns = new HashSet<>();
      for (Candidate candidate : apple.candidates()) {
        List<Morpheme> morphemes = candidate.morphemes();
        Check.equal(List.of("사과", "의"),
            morphemes.stream().map(Morpheme::lexicon).toList(), "lexicons");
        Morpheme noun = morphemes.get(0);
        nouns.add(noun.pos());
        Check.equal(noun.pos() == NNG ? "NNG" : "NNP", noun.tag(), "noun tag");
        Check.isTrue(noun.indexWord(), "a noun is an index word");
        Check.equal(JKG, morphemes.get(1).pos(), "josa mask");
        // The reverse table names the josa subclasses by their family.
        Check.equal("J_", morphemes.get(1).tag(), "josa tag");
        Check.isTrue(!morphemes.get(1).indexWord(), "a josa is no index word");
      }
      Check.equal(Set.of(NNG, NNP), nouns, "the nouns of both readings");
    }
  }

  public static void optionsReachTheAnalyzer() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Eojul eojul = new QR_Eojul();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge, eojul)) {
      AnalyzedEojul all = analyzer.analyzeEojul("사과의");
      Check.isTrue(all.candidates().size() >= 2, "two readings");
      analyzer.setOption(0, 1);
      Check.equal(1, analyzer.analyzeEojul("사과의").candidates().size(),
          "option 0 keeps one candidate");
      Check.equal(false, analyzer.analyzeEojul("먹은").candidates().get(0)
          .morphemes().get(0).indexWord(), "a verb is no index word by default");
      analyzer.setOption(3, 1);
      Check.equal(true, analyzer.analyzeEojul("먹은").candidates().get(0)
          .morphemes().get(0).indexWord(), "option 3 makes verbs index words");
    }
  }

  public static void sentenceIsKeptOnlyWhenAsked() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      Check.equal(1, analyzer.runWithString("먹은 사과의"), "run");
      Check.equal(0, analyzer.getEojulCountInSentence(), "not kept by default");
      Check.equal(2, analyzer.analyze("먹은 사과의").size(), "analyze keeps it");
      analyzer.runWithString("먹은");
      Check.equal(0, analyzer.getEojulCountInSentence(),
          "analyze leaves the output bits as they were");
      analyzer.setExOption(QR_Analyzer.EX_KEEP_SENTENCE);
      analyzer.runWithString("먹은 사과의 똠방각하");
      Check.equal(3, analyzer.getEojulCountInSentence(), "kept when asked");
      Check.equal(1, analyzer.runWithString(""), "empty text");
      Check.equal(3, analyzer.getEojulCountInSentence(), "the old sentence stays");
      analyzer.tagging(0);
      Check.isTrue(analyzer.getEojulCountInSentence() >= 1, "tagged sentence");
    }
  }

  public static void knowledgeSwapsBetweenAnalyzers() throws Exception {
    QR_Knowledge plain = new QR_Knowledge();
    try (QR_Knowledge rich = Fixture.knowledgeWithPreAnalysis();
         QR_Eojul eojul = new QR_Eojul();
         QR_Analyzer analyzer = new QR_Analyzer(plain, eojul)) {
      analyzer.setKnowledge(rich);
      Check.equal("먹", analyzer.analyzeEojul("먹은").candidates().get(0)
          .morphemes().get(0).lexicon(), "the bound knowledge is used");
      plain.close();
      Check.isTrue(plain.isClosed(), "the unbound knowledge closes");
      Check.raises(IllegalStateException.class, rich::close, "the bound one doesn't");
    } finally {
      plain.close();
    }
  }
}
