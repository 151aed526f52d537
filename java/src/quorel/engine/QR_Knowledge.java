package quorel.engine;

import java.io.IOException;
import java.io.UncheckedIOException;
import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.Charset;
import java.nio.charset.CodingErrorAction;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
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

  /**
   * Loads the knowledge directory `directory` (its qrl.klg with its
   * pre-analysis when there is one, else its source dictionaries), or throws
   * with a message naming the directory and the reason: it is no directory,
   * it holds neither qrl.klg nor a source dictionary, its dictionaries are in
   * UTF-8 (the sources of a knowledge base, not one), or the load fails.
   */
  public void load(Path directory) {
    Objects.requireNonNull(directory);
    if (!Files.isDirectory(directory)) {
      throw new IllegalStateException("no knowledge directory " + directory);
    }
    boolean compiled = Files.isRegularFile(directory.resolve("qrl.klg"));
    if (!compiled) {
      Path sources = null;
      for (String name : new String[] {"nng.dic", "em.dic", "js.dic", "vv.dic"}) {
        if (Files.isRegularFile(directory.resolve(name))) {
          sources = directory.resolve(name);
          break;
        }
      }
      if (sources == null) {
        throw new IllegalStateException("the knowledge in " + directory
            + " holds no word: neither qrl.klg nor a source dictionary"
            + " (em.dic, js.dic, nng.dic, ...)");
      }
      if (isUtf8Text(readAll(sources))) {
        throw new IllegalStateException("the knowledge in " + directory
            + " holds its dictionaries in UTF-8: they are the sources of a"
            + " knowledge base; build one with tools/build_knowledge.py");
      }
    }
    if (loadKnowledge(directory.toString(), compiled, true) < 1) {
      throw new IllegalStateException("can't load the knowledge in " + directory
          + (compiled ? " (qrl.klg)" : " (source dictionaries)"));
    }
    if (!compiled) {
      loadPreAnalysis(directory.toString(), "preanal.sys.dic", true);
    }
  }

  /**
   * Adds the user nouns of `file`, written in UTF-8 or CP949 (the library
   * reads CP949: a UTF-8 file is handed over as a CP949 copy). Throws when
   * the file can't be read or loaded. The library reports a line it rejects
   * on standard error.
   */
  public void addUserNouns(Path file) {
    loadUserFile(file, true);
  }

  /** As addUserNouns, for a pre-analysis file. */
  public void addPreAnalysis(Path file) {
    loadUserFile(file, false);
  }

  private void loadUserFile(Path file, boolean nouns) {
    byte[] content = readAll(Objects.requireNonNull(file));
    Path directory = null;
    Path copy = file;
    try {
      if (isUtf8Text(content)) {
        directory = Files.createTempDirectory("quorel-user");
        copy = directory.resolve(file.getFileName());
        String text = new String(content, StandardCharsets.UTF_8);
        Files.write(copy, text.getBytes(CP949));
      }
      Path parent = copy.toAbsolutePath().getParent();
      String name = copy.getFileName().toString();
      int result = nouns
          ? loadUserNoun(parent.toString(), name, true)
          : loadPreAnalysis(parent.toString(), name, true);
      if (result < 1) {
        throw new IllegalStateException("can't load " + file);
      }
    } catch (IOException e) {
      throw new UncheckedIOException("can't read " + file, e);
    } finally {
      if (directory != null) {
        try {
          Files.deleteIfExists(copy);
          Files.deleteIfExists(directory);
        } catch (IOException ignored) {
          // a temporary copy left behind is harmless
        }
      }
    }
  }

  // The library's encoding of texts and knowledge files.
  static final Charset CP949 = Charset.forName("x-windows-949");

  private static byte[] readAll(Path file) {
    try {
      return Files.readAllBytes(file);
    } catch (IOException e) {
      throw new UncheckedIOException("can't read " + file, e);
    }
  }

  /** True when `bytes` are valid UTF-8 with at least one non-ASCII byte. */
  static boolean isUtf8Text(byte[] bytes) {
    boolean wide = false;
    for (byte b : bytes) {
      if (b < 0) {
        wide = true;
        break;
      }
    }
    if (!wide) {
      return false;
    }
    try {
      StandardCharsets.UTF_8.newDecoder()
          .onMalformedInput(CodingErrorAction.REPORT)
          .onUnmappableCharacter(CodingErrorAction.REPORT)
          .decode(ByteBuffer.wrap(bytes));
      return true;
    } catch (CharacterCodingException e) {
      return false;
    }
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
