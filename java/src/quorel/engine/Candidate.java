package quorel.engine;

import java.util.List;
import java.util.stream.Collectors;

/** One candidate analysis of an eojul: its score and its morphemes in order. */
public record Candidate(double score, List<Morpheme> morphemes) {
  public Candidate {
    morphemes = List.copyOf(morphemes);
  }

  /** The form "lexicon/TAG+lexicon/TAG". */
  @Override
  public String toString() {
    return morphemes.stream().map(Morpheme::toString)
        .collect(Collectors.joining("+"));
  }
}
