package quorel.engine;

import java.io.IOException;
import java.nio.charset.Charset;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Comparator;
import java.util.List;
import java.util.stream.Stream;

/** Knowledge directories and files that the suites write into temp dirs. */
final class Fixture {
  // The library's code page with its extension syllables; the JVM's own
  // "CP949" is IBM's variant, which lacks them.
  static final Charset CP949 = Charset.forName("x-windows-949");

  /** Pre-analysed eojuls with known morphemes (the second has two readings). */
  static final List<String> PRE_ANALYSIS = List.of(
      "먹은\t먹/VV+은/ETM",
      "사과의\t사과/NNG+의/JKG@사과/NNP+의/JKG",
      "똠방각하\t똠방각하/NNG");

  private Fixture() {}

  /** A new empty directory whose name holds Hangul. */
  static Path newDirectory() throws IOException {
    Path dir = Files.createTempDirectory("qrlsl-지식-");
    dir.toFile().deleteOnExit();
    return dir;
  }

  /** Writes `lines` in CP949 to dir/name. */
  static Path writeCp949(Path dir, String name, List<String> lines)
      throws IOException {
    Path file = dir.resolve(name);
    Files.write(file, lines, CP949);
    return file;
  }

  /** Deletes a directory tree written by a suite. */
  static void remove(Path dir) throws IOException {
    try (Stream<Path> paths = Files.walk(dir)) {
      for (Path path : paths.sorted(Comparator.reverseOrder()).toList()) {
        Files.deleteIfExists(path);
      }
    }
  }

  /**
   * A knowledge object loaded from an empty directory, with PRE_ANALYSIS
   * added. The directory is removed again before this returns.
   */
  static QR_Knowledge knowledgeWithPreAnalysis() throws IOException {
    Path dir = newDirectory();
    try {
      writeCp949(dir, "preanal.txt", PRE_ANALYSIS);
      QR_Knowledge knowledge = new QR_Knowledge();
      knowledge.loadKnowledge(dir.toString(), false, false);
      Check.equal(1, knowledge.loadPreAnalysis(dir.toString(), "preanal.txt",
          false), "pre-analysis load");
      return knowledge;
    } finally {
      remove(dir);
    }
  }
}
