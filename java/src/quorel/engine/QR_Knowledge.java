package quorel.engine;

import java.util.Objects;

/**
 * Everything the analyzer knows, loaded from a knowledge directory. Load it on
 * one thread, then share it: any number of analyzers, one per thread, may
 * read it at once. It can't be closed while an open analyzer is bound to it.
 * Paths go to the library in the JVM's default charset; at most 1,024 bytes
 * of each are used.
 */
public class QR_Knowledge extends NativeObject {
  static {
    NativeLibrary.load();
  }

  /** An empty knowledge object; nothing is loaded yet. */
  public QR_Knowledge() {
    attach(jniCreateObject(), true);
  }

  /**
   * Loads the directory `path`, from its compiled file when fromCompiledFile;
   * the last flag asks for its pre-analysis section. 0 or below on failure.
   */
  public int loadKnowledge(String path, boolean fromCompiledFile,
                           boolean withPreAnalysis) {
    return jniLoadKnowledge(Objects.requireNonNull(path), fromCompiledFile,
        withPreAnalysis, live());
  }

  /** Adds the user nouns of path/fileName; 0 when the file can't be read. */
  public int loadUserNoun(String path, String fileName, boolean flag) {
    return jniLoadUserNoun(Objects.requireNonNull(path),
        Objects.requireNonNull(fileName), flag, live());
  }

  /**
   * Adds the pre-analysed eojuls of path/fileName ("eojul TAB form/TAG+...",
   * alternatives joined by "@"), in CP949. 1 when read, 0 when the file can't
   * be opened.
   */
  public int loadPreAnalysis(String path, String fileName, boolean overwrite) {
    return jniLoadPreAnalysis(Objects.requireNonNull(path),
        Objects.requireNonNull(fileName), overwrite, live());
  }

  /** Loads the tagger's rules and tables under path/sinfo, with fixed weights. */
  public void loadTaggerInfo(String path) {
    jniLoadTaggerInfo(Objects.requireNonNull(path), live());
  }

  @Override
  void delete(long value) {
    jniDeleteObject(value);
  }

  // The natives. `self` is the handle; 0 is accepted only by jniDeleteObject.
  public native long jniCreateObject();

  public native void jniDeleteObject(long self);

  public native int jniLoadKnowledge(String path, boolean fromCompiledFile,
                                     boolean withPreAnalysis, long self);

  public native int jniLoadUserNoun(String path, String fileName, boolean flag,
                                    long self);

  public native int jniLoadPreAnalysis(String path, String fileName,
                                       boolean overwrite, long self);

  public native void jniLoadTaggerInfo(String path, long self);
}
