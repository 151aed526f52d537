package quorel.engine;

import java.util.Objects;

/** Assertions of the Java test suites: each failure throws AssertionError. */
final class Check {
  private Check() {}

  static void isTrue(boolean condition, String what) {
    if (!condition) {
      throw new AssertionError(what);
    }
  }

  static void equal(Object expected, Object actual, String what) {
    if (!Objects.equals(expected, actual)) {
      throw new AssertionError(what + ": expected <" + expected + "> but was <"
          + actual + ">");
    }
  }

  /** Runs `action` and requires it to throw an exception of `type`. */
  static void raises(Class<? extends Throwable> type, Runnable action,
                     String what) {
    try {
      action.run();
    } catch (Throwable thrown) {
      if (type.isInstance(thrown)) {
        return;
      }
      throw new AssertionError(what + ": threw " + thrown, thrown);
    }
    throw new AssertionError(what + ": nothing was thrown");
  }
}
