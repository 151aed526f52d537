/**
 * The Java face of libqrlsl, the Korean morphological analyzer.
 *
 * <p>{@link quorel.engine.QR_Knowledge}, {@link quorel.engine.QR_Analyzer} and
 * {@link quorel.engine.QR_Eojul} each hold a native handle and declare the
 * library's natives (the jni* methods, with the handle as their last
 * argument). Their other methods check handles and close them once; the
 * records {@link quorel.engine.AnalyzedEojul}, {@link quorel.engine.Candidate}
 * and {@link quorel.engine.Morpheme} carry results out as plain Java values.
 *
 * <pre>{@code
 * try (QR_Knowledge knowledge = new QR_Knowledge()) {
 *   knowledge.loadKnowledge("/path/to/knowledge", true, true);
 *   try (QR_Analyzer analyzer = new QR_Analyzer(knowledge)) {
 *     for (AnalyzedEojul eojul : analyzer.analyze("형태소를 분석한다.")) {
 *       System.out.println(eojul.surface() + " " + eojul.best());
 *     }
 *   }
 * }
 * }</pre>
 *
 * <p>The library is loaded by name ("qrlsl", through java.library.path), or
 * from the file named by the system property quorel.engine.library. Text
 * crosses as UTF-8 and lives inside the library as CP949: a character that
 * CP949 lacks (an emoji, say) arrives as a blank and so splits its token.
 */
package quorel.engine;
