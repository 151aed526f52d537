package quorel.engine;

/**
 * Loads libqrlsl once: from the file named by the system property
 * {@value #PATH_PROPERTY} when it is set, else by name ("qrlsl") through
 * java.library.path.
 */
final class NativeLibrary {
  static final String PATH_PROPERTY = "quorel.engine.library";

  private static boolean loaded;

  private NativeLibrary() {}

  static synchronized void load() {
    if (loaded) {
      return;
    }
    String path = System.getProperty(PATH_PROPERTY);
    if (path != null && !path.isEmpty()) {
      System.load(path);
    } else {
      System.loadLibrary("qrlsl");
    }
    loaded = true;
  }
}
