package quorel.engine;

import java.util.ArrayList;
import java.util.List;
import java.util.Objects;

/**
 * One analysed token: its surface and its candidate analyses, each a list of
 * morphemes. Candidates and morphemes are numbered from 0; readers stay within
 * getListSize() and getCount(), and out-of-range numbers give "", -1, false
 * or 0.0. An eojul of an analyzer's sentence is a view: it isn't deleted on
 * close and can't be read after that analyzer's next run.
 */
public class QR_Eojul extends NativeObject {
  static {
    NativeLibrary.load();
  }

  private final QR_Analyzer source;
  private final int generation;

  /** A new, empty eojul owned by this object. */
  public QR_Eojul() {
    source = null;
    generation = 0;
    attach(jniCreateObject(), true);
  }

  /** A view of an eojul owned elsewhere, valid while `source` keeps its run. */
  QR_Eojul(long handle, QR_Analyzer source, int generation) {
    this.source = source;
    this.generation = generation;
    attach(jniSetObject(handle), false);
  }

  /**
   * Wraps a native eojul handle (from jniGetEojulInSentence) without taking
   * it over: close() never deletes it, and its owner decides how long it lives.
   */
  public static QR_Eojul view(long handle) {
    if (handle == 0) {
      throw new IllegalArgumentException("no eojul at handle 0");
    }
    return new QR_Eojul(handle, null, 0);
  }

  @Override
  void checkUsable() {
    if (source != null && !source.isRun(generation)) {
      throw new IllegalStateException(
          "this eojul belonged to an earlier run of its analyzer");
    }
  }

  /** Clears the surface and all candidates. */
  public void initialize() {
    jniEojulInitialize(live());
  }

  /** Makes `text` the surface, as one token, ready for runWithEojul. */
  public void setString(String text) {
    jniSetString(Objects.requireNonNull(text), live());
  }

  public String getString() {
    return jniGetString(live());
  }

  /** Number of candidates. */
  public int getListSize() {
    return jniGetListSize(live());
  }

  /** Number of morphemes of a candidate. */
  public int getCount(int candidate) {
    return jniGetCount(candidate, live());
  }

  public String getLexicon(int candidate, int morpheme) {
    return jniGetLexicon(candidate, morpheme, live());
  }

  /** The 32-bit POS mask of a morpheme; -1 when out of range. */
  public int getPOS(int candidate, int morpheme) {
    return jniGetPOS(candidate, morpheme, live());
  }

  /** The tag name of a morpheme such as "NNG"; "" when out of range. */
  public String getStrPOS(int candidate, int morpheme) {
    return jniGetStrPOS(candidate, morpheme, live());
  }

  /** Score of a candidate; 0.0 or below means not scored. */
  public double getScore(int candidate) {
    return jniGetScore(candidate, live());
  }

  /** Whether the morpheme is offered as an index word. */
  public boolean isIndexWord(int candidate, int morpheme) {
    return jniIsIndexWord(candidate, morpheme, live());
  }

  /** Reads everything into Java objects, with `offset` as the eojul's offset. */
  public AnalyzedEojul read(int offset) {
    long self = live();
    int size = jniGetListSize(self);
    List<Candidate> candidates = new ArrayList<>(size);
    for (int c = 0; c < size; ++c) {
      int count = jniGetCount(c, self);
      List<Morpheme> morphemes = new ArrayList<>(count);
      for (int m = 0; m < count; ++m) {
        morphemes.add(new Morpheme(jniGetLexicon(c, m, self),
            jniGetStrPOS(c, m, self), jniGetPOS(c, m, self),
            jniIsIndexWord(c, m, self)));
      }
      candidates.add(new Candidate(jniGetScore(c, self), morphemes));
    }
    return new AnalyzedEojul(jniGetString(self), offset, candidates);
  }

  @Override
  void delete(long value) {
    jniDeleteObject(value);
  }

  // The natives. `self` is the handle; 0 is accepted only by jniDeleteObject.
  public native long jniCreateObject();

  /** Returns `handle`: the way a Java object adopts a sentence's eojul. */
  public native long jniSetObject(long handle);

  public native void jniDeleteObject(long self);

  public native void jniEojulInitialize(long self);

  public native void jniSetString(String text, long self);

  public native String jniGetString(long self);

  public native int jniGetListSize(long self);

  public native int jniGetCount(int candidate, long self);

  public native String jniGetLexicon(int candidate, int morpheme, long self);

  public native int jniGetPOS(int candidate, int morpheme, long self);

  public native String jniGetStrPOS(int candidate, int morpheme, long self);

  public native double jniGetScore(int candidate, long self);

  public native boolean jniIsIndexWord(int candidate, int morpheme, long self);
}
