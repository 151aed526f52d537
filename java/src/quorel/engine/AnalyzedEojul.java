package quorel.engine;

import java.util.List;

/**
 * An analysed eojul read out of the library: its surface, its offset in the
 * analysed text (in CP949 bytes, or characters under option 18; -1 when it
 * wasn't read from a sentence) and its candidates in the library's order.
 */
public record AnalyzedEojul(String surface, int offset, List<Candidate> candidates) {
  public AnalyzedEojul {
    candidates = List.copyOf(candidates);
  }

  /**
   * The candidate with the highest score, the later one among equals; null
   * when there are none.
   */
  public Candidate best() {
    Candidate best = null;
    for (Candidate candidate : candidates) {
      if (best == null || candidate.score() >= best.score()) {
        best = candidate;
      }
    }
    return best;
  }

  /** The surface, a TAB, then the candidates joined by " | ". */
  @Override
  public String toString() {
    StringBuilder text = new StringBuilder(surface).append('\t');
    for (int c = 0; c < candidates.size(); ++c) {
      text.append(c == 0 ? "" : " | ").append(candidates.get(c));
    }
    return text.toString();
  }
}
