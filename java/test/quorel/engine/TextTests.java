package quorel.engine;

import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/** Text crossing the bridge: UTF-8 in, CP949 inside, UTF-8 out. */
public final class TextTests {
  private TextTests() {}

  // Hangul, an extension syllable (no KS X 1001 code), Latin, digits,
  // punctuation.
  private static final String MIXED = "한국어 형태소 분석기는 Java 17에서 똠방각하를 돌린다.";

  public static void surfacesAndOffsetsOfMixedText() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      analyzer.setOption(12, 1);  // Latin keeps its case
      List<AnalyzedEojul> eojuls = analyzer.analyze(MIXED);
      StringBuilder joined = new StringBuilder();
      byte[] cp949 = MIXED.getBytes(Fixture.CP949);
      for (AnalyzedEojul eojul : eojuls) {
        joined.append(eojul.surface());
        // Each offset points at its surface in the CP949 bytes of the text.
        byte[] surface = eojul.surface().getBytes(Fixture.CP949);
        String at = new String(cp949, eojul.offset(),
            Math.min(surface.length, cp949.length - eojul.offset()), Fixture.CP949);
        Check.equal(eojul.surface(), at, "surface at offset " + eojul.offset());
      }
      Check.equal(MIXED.replace(" ", ""), joined.toString(),
          "the surfaces give the text back without its blanks");
      Check.equal("한국어", eojuls.get(0).surface(), "first eojul");
      Check.equal(0, eojuls.get(0).offset(), "first offset");
      Check.equal(7, eojuls.get(1).offset(), "second offset in CP949 bytes");
    }
  }

  public static void readersAgreeWithTheJavaObjects() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      List<AnalyzedEojul> eojuls = analyzer.analyze(MIXED);
      Check.equal(eojuls.size(), analyzer.getEojulCountInSentence(), "count");
      for (int i = 0; i < eojuls.size(); ++i) {
        AnalyzedEojul read = eojuls.get(i);
        QR_Eojul view = analyzer.getEojulInSentence(i);
        Check.equal(read.surface(), view.getString(), "surface " + i);
        Check.equal(read.offset(), analyzer.getEojulOffsetInSentence(i), "offset " + i);
        Check.equal(read.candidates().size(), view.getListSize(), "candidates " + i);
        Check.isTrue(view.getListSize() >= 1, "every eojul has a candidate: " + read);
        for (int c = 0; c < view.getListSize(); ++c) {
          Candidate candidate = read.candidates().get(c);
          Check.equal(candidate.score(), view.getScore(c), "score " + i + "/" + c);
          Check.equal(candidate.morphemes().size(), view.getCount(c), "morphemes");
          for (int m = 0; m < view.getCount(c); ++m) {
            Morpheme morpheme = candidate.morphemes().get(m);
            Check.equal(morpheme.lexicon(), view.getLexicon(c, m), "lexicon");
            Check.equal(morpheme.tag(), view.getStrPOS(c, m), "tag");
            Check.equal(morpheme.pos(), view.getPOS(c, m), "mask");
            Check.equal(morpheme.indexWord(), view.isIndexWord(c, m), "index word");
            Check.isTrue(!morpheme.lexicon().isEmpty() && !morpheme.tag().isEmpty(),
                "a lexicon and a tag name: " + morpheme);
          }
        }
      }
    }
  }

  public static void eojulTextRoundTripsExactly() {
    String[] words = {"한국어", "똠방각하", "java", "①②", "가나다라마바사아자차카타파하",
        "뷁쉛쀍", "ㄱㄴㄷ", "、。"};
    try (QR_Eojul eojul = new QR_Eojul()) {
      for (String word : words) {
        eojul.setString(word);
        Check.equal(word, eojul.getString(), "round trip");
      }
      eojul.initialize();
      Check.equal("", eojul.getString(), "initialised");
      Check.equal(0, eojul.getListSize(), "no candidates after initialize");
    }
  }

  public static void setStringThenRunWithEojul() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Eojul eojul = new QR_Eojul();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge, eojul)) {
      long self = analyzer.getHandle();
      eojul.jniSetString("똠방각하", eojul.getHandle());
      Check.equal(1, analyzer.jniRunWithEojul(self), "run");
      Check.equal("똠방각하", eojul.jniGetString(eojul.getHandle()), "surface");
      Check.equal("똠방각하", eojul.getLexicon(0, 0), "pre-analysed lexicon");
      Check.equal("NNG", eojul.getStrPOS(0, 0), "pre-analysed tag");
      AnalyzedEojul word = analyzer.analyzeEojul("java");
      Check.equal("java", word.surface(), "second word");
      Check.isTrue(!word.candidates().isEmpty(), "a candidate for java");
      Check.equal(-1, word.offset(), "no sentence offset");
    }
  }

  public static void analyzerWithoutAnEojulWaitsForOne() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Eojul eojul = new QR_Eojul();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge, null)) {
      Check.raises(IllegalStateException.class, () -> analyzer.analyzeEojul("먹은"),
          "no eojul given");
      analyzer.setEojul(eojul);
      eojul.setString("먹은");
      Check.equal(1, analyzer.runWithEojul(), "run after setEojul");
      Check.equal("먹", eojul.getLexicon(0, 0), "analysed");
      Check.raises(IllegalStateException.class, eojul::close, "eojul in use");
    }
  }

  public static void sameResultAsTheCommandLineTool() throws Exception {
    String tool = System.getProperty("quorel.test.tool");
    if (tool == null) {
      throw new TestMain.Skipped("no path to the qrl tool given");
    }
    String text = MIXED + "\n어제 먹은 사과는 달았다.\n";
    // The tool refuses a knowledge without a word: it gets one word that
    // the text doesn't use. Latin keeps its case on both sides (the tool
    // writes surfaces as the input has them), and the tool lists every
    // candidate untagged, as analyze does.
    Path knowledgeDir = Files.createTempDirectory("qrl-tiny");
    Files.write(knowledgeDir.resolve("ic.dic"), "어이쿠\n".getBytes(Fixture.CP949));
    Process process = new ProcessBuilder(tool, "-k", knowledgeDir.toString(), "-f", "tsv",
        "-n", "0", "-o", "12=1").start();
    try (OutputStream in = process.getOutputStream()) {
      in.write(text.getBytes(StandardCharsets.UTF_8));
    }
    String printed = readAll(process.getInputStream());
    Check.equal(0, process.waitFor(), "qrl exit status");
    List<String> fromJava = new ArrayList<>();
    try (QR_Knowledge knowledge = new QR_Knowledge();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      analyzer.setOption(12, 1);
      for (String line : text.split("\n")) {
        // The tool's tabular form: the surface, then a TAB before each
        // candidate that has morphemes.
        for (AnalyzedEojul eojul : analyzer.analyze(line)) {
          StringBuilder tsv = new StringBuilder(eojul.surface());
          for (Candidate candidate : eojul.candidates()) {
            if (!candidate.morphemes().isEmpty()) {
              tsv.append('\t').append(candidate);
            }
          }
          fromJava.add(tsv.toString());
        }
      }
    }
    Check.equal(String.join("\n", fromJava) + "\n", printed, "tsv lines");
    Files.delete(knowledgeDir.resolve("ic.dic"));
    Files.delete(knowledgeDir);
  }

  private static String readAll(InputStream in) throws IOException {
    ByteArrayOutputStream out = new ByteArrayOutputStream();
    in.transferTo(out);
    return out.toString(StandardCharsets.UTF_8);
  }
}
