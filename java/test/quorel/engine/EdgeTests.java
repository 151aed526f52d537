package quorel.engine;

import java.nio.file.Path;
import java.util.List;

/** The edges of the native surface and of the objects that hold handles. */
public final class EdgeTests {
  private EdgeTests() {}

  public static void deleteOfZeroDoesNothing() {
    try (QR_Knowledge knowledge = new QR_Knowledge();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge);
         QR_Eojul eojul = new QR_Eojul()) {
      knowledge.jniDeleteObject(0);
      analyzer.jniDeleteObject(0);
      eojul.jniDeleteObject(0);
      Check.isTrue(!knowledge.isClosed() && !eojul.isClosed(),
          "objects stay open");
    }
  }

  public static void setObjectReturnsItsArgument() {
    try (QR_Eojul eojul = new QR_Eojul()) {
      for (long handle : new long[] {0, 1, -1, 0x123456789ABCL, eojul.getHandle()}) {
        Check.equal(handle, eojul.jniSetObject(handle), "jniSetObject");
      }
    }
  }

  public static void sentenceIndexPastTheEndGivesZero() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      long self = analyzer.getHandle();
      Check.equal(0L, analyzer.jniGetEojulInSentence(0, self), "empty sentence");
      analyzer.setExOption(QR_Analyzer.EX_KEEP_SENTENCE);
      Check.equal(1, analyzer.runWithString("먹은 사과의"), "run result");
      Check.equal(2, analyzer.getEojulCountInSentence(), "eojuls");
      Check.isTrue(analyzer.jniGetEojulInSentence(1, self) != 0, "last one");
      Check.equal(0L, analyzer.jniGetEojulInSentence(2, self), "one past");
      Check.equal(0L, analyzer.jniGetEojulInSentence(-1, self), "negative");
      Check.equal(null, analyzer.getEojulInSentence(2), "Java view past the end");
      Check.raises(IndexOutOfBoundsException.class,
          () -> analyzer.getEojulOffsetInSentence(2), "offset past the end");
    }
  }

  public static void badIndexesGiveMinusOneAndEmptyStrings() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Eojul eojul = new QR_Eojul();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge, eojul)) {
      eojul.setString("먹은");
      Check.equal(1, analyzer.runWithEojul(), "run");
      int size = eojul.getListSize();
      Check.isTrue(size >= 1, "a candidate");
      int count = eojul.getCount(0);
      // A morpheme number equal to the count still reads the next one stored.
      int[][] bad = {{size, 0}, {-1, 0}, {0, count + 1}, {0, -1}, {1000, 1000}};
      for (int[] at : bad) {
        String where = " at " + at[0] + "," + at[1];
        Check.equal(-1, eojul.getPOS(at[0], at[1]), "mask" + where);
        Check.equal("", eojul.getStrPOS(at[0], at[1]), "tag" + where);
        Check.equal("", eojul.getLexicon(at[0], at[1]), "lexicon" + where);
        Check.equal(false, eojul.isIndexWord(at[0], at[1]), "index word" + where);
      }
      Check.equal(0, eojul.getCount(size), "morphemes past the candidates");
    }
  }

  public static void longPathsAreCutAt1023Bytes() throws Exception {
    Path dir = Fixture.newDirectory();
    try {
      Path sub = dir.resolve("d");
      sub.toFile().mkdir();
      Fixture.writeCp949(sub, "pre.txt", Fixture.PRE_ANALYSIS);
      // Lengths are bytes in the default charset, as the paths cross.
      String prefix = sub.toString();
      int prefixBytes = bytes(prefix);
      try (QR_Knowledge knowledge = new QR_Knowledge()) {
        // 1,024 bytes are all kept: the path must end with its "d".
        String exact = prefix.substring(0, prefix.length() - 1)
            + "/".repeat(1024 - prefixBytes) + "d";
        Check.equal(1024, bytes(exact), "length of the full path");
        Check.equal(1, knowledge.loadPreAnalysis(exact, "pre.txt", false),
            "a 1,024-byte path");
        // 1,500 bytes keep 1,023: slashes up to there, then junk that the cut drops.
        String cut = prefix + "/".repeat(1023 - prefixBytes);
        String tooLong = cut + "x".repeat(1500 - bytes(cut));
        Check.equal(1500, bytes(tooLong), "length of the long path");
        Check.equal(1, knowledge.loadPreAnalysis(tooLong, "pre.txt", false),
            "a 1,500-byte path cut to 1,023");
        Check.equal(0, knowledge.loadPreAnalysis(cut + "x", "pre.txt", false),
            "a 1,024-byte path ending in junk");
        Check.equal(0, knowledge.loadUserNoun(tooLong, "x".repeat(1500), false),
            "long path and name for a missing file");
        knowledge.loadKnowledge(tooLong, false, false);
        knowledge.loadTaggerInfo(tooLong);
      }
    } finally {
      Fixture.remove(dir);
    }
  }

  private static int bytes(String path) {
    return path.getBytes().length;
  }

  public static void emojiBecomesABlankThatSplitsTheToken() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      List<AnalyzedEojul> eojuls = analyzer.analyze("먹은\uD83D\uDE00사과의");
      Check.equal(2, eojuls.size(), "eojuls");
      Check.equal("먹은", eojuls.get(0).surface(), "before the emoji");
      Check.equal("사과의", eojuls.get(1).surface(), "after the emoji");
      Check.equal(0, eojuls.get(0).offset(), "first offset");
      Check.equal(5, eojuls.get(1).offset(), "second offset, after the blank");
    }
    try (QR_Eojul eojul = new QR_Eojul()) {
      eojul.setString("가\uD83D\uDE00나");
      Check.equal("가 나", eojul.getString(), "the emoji as a blank");
    }
  }

  public static void nullStringsCrossAsEmpty() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Eojul eojul = new QR_Eojul();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge, eojul)) {
      Check.equal(0, knowledge.jniLoadPreAnalysis(null, "absent-pre.txt", false,
          knowledge.getHandle()), "a null path is empty");
      eojul.setString("먹은");
      eojul.setString("");
      String afterEmpty = eojul.getString();
      eojul.setString("먹은");
      eojul.jniSetString(null, eojul.getHandle());
      Check.equal(afterEmpty, eojul.getString(), "a null text acts as the empty one");
      analyzer.setExOption(QR_Analyzer.EX_KEEP_SENTENCE);
      analyzer.runWithString("먹은");
      Check.equal(1, analyzer.jniRunWithString(null, analyzer.getHandle()),
          "a null text runs as the empty one");
      Check.equal(1, analyzer.getEojulCountInSentence(), "the sentence stays");
    }
  }

  public static void closeTwiceIsHarmless() throws Exception {
    QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
    QR_Eojul eojul = new QR_Eojul();
    QR_Analyzer analyzer = new QR_Analyzer(knowledge, eojul);
    analyzer.close();
    analyzer.close();
    eojul.close();
    eojul.close();
    knowledge.close();
    knowledge.close();
    Check.isTrue(analyzer.isClosed() && eojul.isClosed() && knowledge.isClosed(),
        "all closed");
    Check.equal(0L, knowledge.getHandle(), "handle dropped");
    Check.raises(IllegalStateException.class, () -> eojul.getString(),
        "reading a closed eojul");
    Check.raises(IllegalStateException.class, () -> analyzer.runWithString("x"),
        "running a closed analyzer");
  }

  public static void boundObjectsRefuseToCloseFirst() throws Exception {
    QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
    QR_Eojul eojul = new QR_Eojul();
    QR_Analyzer analyzer = new QR_Analyzer(knowledge, eojul);
    Check.raises(IllegalStateException.class, knowledge::close,
        "knowledge under an analyzer");
    Check.raises(IllegalStateException.class, eojul::close,
        "eojul under an analyzer");
    Check.isTrue(!knowledge.isClosed() && !eojul.isClosed(), "still open");
    analyzer.close();
    knowledge.close();
    eojul.close();
    Check.isTrue(knowledge.isClosed() && eojul.isClosed(), "closed after it");
  }

  public static void closedObjectsCantBeBound() {
    QR_Knowledge closed = new QR_Knowledge();
    closed.close();
    Check.raises(IllegalStateException.class, () -> new QR_Analyzer(closed),
        "an analyzer on closed knowledge");
    QR_Knowledge knowledge = new QR_Knowledge();
    QR_Eojul gone = new QR_Eojul();
    gone.close();
    Check.raises(IllegalStateException.class, () -> new QR_Analyzer(knowledge, gone),
        "an analyzer on a closed eojul");
    knowledge.close();
    Check.isTrue(knowledge.isClosed(), "a failed analyzer leaves nothing bound");
  }

  public static void sentenceViewsAreNotOwnedAndExpire() throws Exception {
    try (QR_Knowledge knowledge = Fixture.knowledgeWithPreAnalysis();
         QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      analyzer.setExOption(QR_Analyzer.EX_KEEP_SENTENCE);
      analyzer.runWithString("먹은 사과의");
      QR_Eojul view = analyzer.getEojulInSentence(1);
      Check.isTrue(!view.isOwner(), "a view");
      Check.equal(analyzer.jniGetEojulInSentence(1, analyzer.getHandle()),
          view.getHandle(), "the sentence's handle");
      view.close();
      Check.equal("사과의", analyzer.getEojulInSentence(1).getString(),
          "the sentence survives the view's close");
      QR_Eojul stale = analyzer.getEojulInSentence(0);
      analyzer.runWithString("사과의");
      Check.raises(IllegalStateException.class, stale::getString,
          "a view of the previous run");
      QR_Eojul raw = QR_Eojul.view(analyzer.jniGetEojulInSentence(0,
          analyzer.getHandle()));
      Check.equal("사과의", raw.getString(), "a raw view");
      raw.close();
      Check.equal(1, analyzer.getEojulCountInSentence(), "still there");
    }
  }
}
