package quorel.engine;

import java.util.ArrayList;
import java.util.List;
import java.util.Objects;

/**
 * Turns text into analysed eojuls. Bind it to a loaded QR_Knowledge, set
 * options, then either runWithString and read the sentence, or set a string
 * in the current eojul and runWithEojul. One thread at a time may use an
 * analyzer; results are valid until its next run. A knowledge object or eojul
 * given to an analyzer can't be closed before the analyzer.
 */
public class QR_Analyzer extends NativeObject {
  static {
    NativeLibrary.load();
  }

  /**
   * Options beyond the native catalogue that this binding turns on for every
   * analyzer (the native library leaves them off): 20, an unknown word gives
   * up its josa and is divided into the known words it is made of; 21,
   * tagging mode 1 breaks ties of one tag list by score; 22, tagging mode 1
   * leaves words its statistics don't know to the rules of mode 0.
   * setOption(n, 0) turns one off.
   */
  public static final int OPTION_UNKNOWN_ENDING = 20;
  public static final int OPTION_SCORE_TIES = 21;
  public static final int OPTION_RULES_FOR_UNKNOWN = 22;

  /** Bits of setExOption: keep the sentence, print each eojul, tagging mode. */
  public static final int EX_KEEP_SENTENCE = 1;
  public static final int EX_PRINT = 2;
  public static final int EX_TAGGING_MODE = 4;

  private QR_Knowledge knowledge;
  private QR_Eojul eojul;
  private int exOption;
  // Counts the runs that replace the sentence; views of its eojuls carry the
  // count they were made under.
  private int generation;

  /** An analyzer on shared knowledge, with an eojul of its own. */
  public QR_Analyzer(QR_Knowledge knowledge) {
    this(knowledge, null, false);
  }

  /**
   * An analyzer on shared knowledge that works in `eojul` (which it doesn't
   * own). With a null eojul, setEojul must come before any run.
   */
  public QR_Analyzer(QR_Knowledge knowledge, QR_Eojul eojul) {
    this(knowledge, eojul, true);
  }

  private QR_Analyzer(QR_Knowledge knowledge, QR_Eojul eojul, boolean given) {
    long k = knowledge.retain();
    long e = 0;
    try {
      e = eojul == null ? 0 : eojul.retain();
      attach(given ? jniCreateObject(k, e) : jniCreateObject(k), true);
    } catch (RuntimeException | Error failure) {
      knowledge.release();
      if (e != 0) {
        eojul.release();
      }
      throw failure;
    }
    this.knowledge = knowledge;
    this.eojul = eojul;
    setDefaultOptions();
  }

  private void setDefaultOptions() {
    long self = live();
    jniSetOption(OPTION_UNKNOWN_ENDING, 1, self);
    jniSetOption(OPTION_SCORE_TIES, 1, self);
    jniSetOption(OPTION_RULES_FOR_UNKNOWN, 1, self);
  }

  boolean isRun(int expected) {
    return !isClosed() && generation == expected;
  }

  /** Binds another knowledge object. */
  public void setKnowledge(QR_Knowledge next) {
    long self = live();
    jniSetKnowledge(next.retain(), self);
    knowledge.release();
    knowledge = next;
  }

  /**
   * Makes `next` the current eojul. This re-initialises the analyzer: options
   * and output bits must be set again afterwards (options 20 to 22 are set
   * on again here).
   */
  public int setEojul(QR_Eojul next) {
    long self = live();
    int result = jniSetEojul(next.retain(), self);
    if (eojul != null) {
      eojul.release();
    }
    eojul = next;
    exOption = 0;
    setDefaultOptions();
    return result;
  }

  /** Sets numbered option 0 to 22; others are ignored. */
  public void setOption(int option, int value) {
    jniSetOption(option, value, live());
  }

  /** Sets the output bits (EX_KEEP_SENTENCE, EX_PRINT, EX_TAGGING_MODE). */
  public void setExOption(int flags) {
    jniSetExOption(flags, live());
    exOption = flags & 0xFF;
  }

  /** Analyses the string set in the current eojul; 0 when there is none. */
  public int runWithEojul() {
    return jniRunWithEojul(live());
  }

  /** Scans and analyses a whole text into the sentence. */
  public int runWithString(String text) {
    int result = jniRunWithString(Objects.requireNonNull(text), live());
    ++generation;
    return result;
  }

  public int getEojulCountInSentence() {
    return jniGetEojulCountInSentence(live());
  }

  /**
   * A view of element `index` of the sentence, or null past the end. It stays
   * readable until the next run and is never deleted.
   */
  public QR_Eojul getEojulInSentence(int index) {
    long handle = jniGetEojulInSentence(index, live());
    return handle == 0 ? null : new QR_Eojul(handle, this, generation);
  }

  /** Offset of element `index` of the sentence. */
  public int getEojulOffsetInSentence(int index) {
    long self = live();
    int count = jniGetEojulCountInSentence(self);
    if (index < 0 || index >= count) {
      throw new IndexOutOfBoundsException("eojul " + index + " of " + count);
    }
    return jniGetEojulOffsetInSentence(index, self);
  }

  /** Runs the tagger over the sentence: mode 0 rules, 1 statistics. */
  public void tagging(int mode) {
    jniTagging(mode, live());
    ++generation;
  }

  /**
   * The most characters handed to the native analyzer at once: at most two
   * CP949 bytes each, they stay under its line limit of 66,560 bytes, beyond
   * which it analyses nothing.
   */
  static final int PIECE_CHARS = 30000;

  /**
   * Analyses `text` and returns its eojuls. The sentence is kept for this
   * call whatever the output bits say; the other bits stay as set. A text
   * too long for one run is analysed in pieces cut at a line end, a sentence
   * end or a blank (at a character otherwise); each eojul's offset counts
   * from the start of the whole text, as one run would count it.
   */
  public List<AnalyzedEojul> analyze(String text) {
    if (text.length() <= PIECE_CHARS) {
      return analyzePiece(text);
    }
    List<AnalyzedEojul> eojuls = new ArrayList<>();
    int start = 0;
    int base = 0;
    while (start < text.length()) {
      int end = pieceEnd(text, start);
      String piece = text.substring(start, end);
      for (AnalyzedEojul e : analyzePiece(piece)) {
        eojuls.add(new AnalyzedEojul(e.surface(), e.offset() < 0 ? e.offset() : e.offset() + base,
            e.candidates()));
      }
      base += piece.getBytes(QR_Knowledge.CP949).length;
      start = end;
    }
    return eojuls;
  }

  /** Where the piece of `text` that starts at `start` ends. */
  static int pieceEnd(String text, int start) {
    int limit = start + PIECE_CHARS;
    if (limit >= text.length()) {
      return text.length();
    }
    int cut = text.lastIndexOf('\n', limit - 1);
    if (cut < start) {
      cut = -1;
      for (int i = limit - 1; i > start; --i) {
        char c = text.charAt(i - 1);
        if (Character.isWhitespace(text.charAt(i)) && (c == '.' || c == '?' || c == '!')) {
          cut = i;
          break;
        }
      }
    }
    if (cut < start) {
      cut = -1;
      for (int i = limit - 1; i > start; --i) {
        if (Character.isWhitespace(text.charAt(i))) {
          cut = i;
          break;
        }
      }
    }
    if (cut <= start) {
      cut = Character.isLowSurrogate(text.charAt(limit)) ? limit - 1 : limit;
    }
    return cut + (cut < text.length() && text.charAt(cut) == '\n' ? 1 : 0);
  }

  private List<AnalyzedEojul> analyzePiece(String text) {
    long self = live();
    jniSetExOption(exOption | EX_KEEP_SENTENCE, self);
    try {
      runWithString(text);
    } finally {
      jniSetExOption(exOption, self);
    }
    return readSentence();
  }

  /** The sentence of the last run as Java objects. */
  public List<AnalyzedEojul> readSentence() {
    long self = live();
    int count = jniGetEojulCountInSentence(self);
    List<AnalyzedEojul> eojuls = new ArrayList<>(count);
    for (int i = 0; i < count; ++i) {
      QR_Eojul element = getEojulInSentence(i);
      eojuls.add(element.read(jniGetEojulOffsetInSentence(i, self)));
    }
    return eojuls;
  }

  /**
   * Analyses `word` as one token in the eojul this analyzer was given and
   * reads it back. Throws when the analyzer works in an eojul of its own.
   */
  public AnalyzedEojul analyzeEojul(String word) {
    if (eojul == null) {
      throw new IllegalStateException(
          "the analyzer was not given an eojul (use the two-argument form)");
    }
    eojul.setString(word);
    runWithEojul();
    return eojul.read(-1);
  }

  @Override
  void delete(long value) {
    jniDeleteObject(value);
  }

  @Override
  void closed() {
    if (eojul != null) {
      eojul.release();
    }
    knowledge.release();
  }

  // The natives. `self` is the handle; 0 is accepted only by jniDeleteObject.
  public native long jniCreateObject(long knowledge);

  /** Either handle may be 0. */
  public native long jniCreateObject(long knowledge, long eojul);

  public native void jniDeleteObject(long self);

  public native void jniSetKnowledge(long knowledge, long self);

  public native int jniSetEojul(long eojul, long self);

  public native void jniSetOption(int option, int value, long self);

  public native void jniSetExOption(int flags, long self);

  public native int jniRunWithEojul(long self);

  public native int jniRunWithString(String text, long self);

  public native int jniGetEojulCountInSentence(long self);

  /** An eojul handle into the sentence, 0 past the end; never to be deleted. */
  public native long jniGetEojulInSentence(int index, long self);

  /** REQUIRES: index below the count; the library doesn't test it. */
  public native int jniGetEojulOffsetInSentence(int index, long self);

  public native void jniTagging(int mode, long self);
}
