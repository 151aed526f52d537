package quorel.engine;

import java.io.IOException;
import java.nio.charset.CharsetEncoder;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;

/**
 * Several Java threads, each with its own analyzer on one shared knowledge
 * object, over sentences of the annotated corpus: every thread must give what
 * one thread gives. The corpus's own analyses become pre-analysis entries, so
 * that real morphemes cross the bridge.
 */
public final class ThreadTests {
  private ThreadTests() {}

  private static final int SENTENCES = 3000;
  private static final int THREADS = 4;

  /** The corpus files, or a skip when the corpus isn't beside the tree. */
  private static List<Path> corpusFiles() throws IOException {
    String root = System.getProperty("quorel.test.corpus");
    Path dir = root == null ? null : Path.of(root);
    if (dir == null || !Files.isDirectory(dir)) {
      throw new TestMain.Skipped("no corpus at " + root);
    }
    List<Path> files;
    try (var paths = Files.walk(dir)) {
      files = paths.filter(p -> p.toString().endsWith(".conllu")).sorted().toList();
    }
    if (files.isEmpty()) {
      throw new TestMain.Skipped("no .conllu files under " + dir);
    }
    return files;
  }

  /**
   * Reads sentence texts into `sentences` and turns each token line into a
   * pre-analysis line "surface TAB form/TAG+form/TAG" when it fits that form.
   */
  private static void readCorpus(List<Path> files, List<String> sentences,
                                 Set<String> entries) throws IOException {
    CharsetEncoder cp949 = Fixture.CP949.newEncoder();
    for (Path file : files) {
      for (String line : Files.readAllLines(file, StandardCharsets.UTF_8)) {
        if (line.startsWith("# text = ")) {
          String text = line.substring("# text = ".length());
          if (sentences.size() < SENTENCES && cp949.canEncode(text)) {
            sentences.add(text);
          }
          continue;
        }
        String[] columns = line.split("\t");
        if (columns.length < 5 || !columns[0].matches("\\d+")) {
          continue;
        }
        String[] forms = columns[2].split("\\+");
        String[] tags = columns[4].split("\\+");
        String surface = columns[1];
        if (forms.length != tags.length || surface.matches(".*[\\s/@+;].*")
            || columns[2].matches(".*[\\s/@;].*") || !cp949.canEncode(surface)
            || !cp949.canEncode(columns[2])) {
          continue;
        }
        StringBuilder entry = new StringBuilder(surface).append('\t');
        for (int i = 0; i < forms.length; ++i) {
          entry.append(i == 0 ? "" : "+").append(forms[i]).append('/').append(tags[i]);
        }
        entries.add(entry.toString());
      }
    }
  }

  private static List<String> analyzeAll(QR_Knowledge knowledge,
                                         List<String> sentences, int start) {
    String[] results = new String[sentences.size()];
    try (QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
      for (int k = 0; k < results.length; ++k) {
        int i = (start + k) % results.length;
        results[i] = analyzer.analyze(sentences.get(i)).toString();
      }
    }
    return List.of(results);
  }

  public static void threadsSharingKnowledgeAgreeWithOneThread() throws Exception {
    List<String> sentences = new ArrayList<>();
    Set<String> entries = new LinkedHashSet<>();
    readCorpus(corpusFiles(), sentences, entries);
    Check.isTrue(sentences.size() >= 1000, "sentences read: " + sentences.size());
    Path dir = Fixture.newDirectory();
    QR_Knowledge knowledge = new QR_Knowledge();
    try {
      Fixture.writeCp949(dir, "corpus.pre", new ArrayList<>(entries));
      knowledge.loadKnowledge(dir.toString(), false, false);
      Check.equal(1, knowledge.loadPreAnalysis(dir.toString(), "corpus.pre", false),
          "corpus pre-analysis");
      List<String> reference = analyzeAll(knowledge, sentences, 0);
      long multiMorpheme = reference.stream().filter(r -> r.contains("+")).count();
      Check.isTrue(multiMorpheme > sentences.size() / 2,
          "pre-analysed morphemes came through in " + multiMorpheme + " sentences");

      ExecutorService pool = Executors.newFixedThreadPool(THREADS);
      try {
        List<Future<List<String>>> runs = new ArrayList<>();
        for (int t = 0; t < THREADS; ++t) {
          int start = t * sentences.size() / THREADS;
          runs.add(pool.submit(() -> analyzeAll(knowledge, sentences, start)));
        }
        for (int t = 0; t < THREADS; ++t) {
          List<String> results = runs.get(t).get();
          for (int i = 0; i < sentences.size(); ++i) {
            Check.equal(reference.get(i), results.get(i),
                "thread " + t + ", sentence " + i);
          }
        }
      } finally {
        pool.shutdown();
      }
    } finally {
      knowledge.close();
      Fixture.remove(dir);
    }
  }
}
