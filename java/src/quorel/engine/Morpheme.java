package quorel.engine;

/**
 * One morpheme of a candidate: its lexical form, tag name, 32-bit POS mask
 * and whether it is offered as an index word.
 */
public record Morpheme(String lexicon, String tag, int pos, boolean indexWord) {
  /** The form "lexicon/TAG". */
  @Override
  public String toString() {
    return lexicon + "/" + tag;
  }
}
