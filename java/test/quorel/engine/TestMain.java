package quorel.engine;

import java.util.LinkedHashMap;
import java.util.Map;

/**
 * Runs one group of the Java suites on a real JVM against libqrlsl: every
 * public static void method of the group's class without parameters is a
 * test. Exits 1 when a test fails, 77 when every test of the group skipped.
 * Usage: TestMain edges | text | knowledge | threads
 */
public final class TestMain {
  /** Thrown by a test that can't run here (missing data or tool). */
  static final class Skipped extends RuntimeException {
    private static final long serialVersionUID = 1L;

    Skipped(String reason) {
      super(reason);
    }
  }

  private TestMain() {}

  public static void main(String[] args) throws Exception {
    Map<String, Class<?>> groups = new LinkedHashMap<>();
    groups.put("edges", EdgeTests.class);
    groups.put("text", TextTests.class);
    groups.put("knowledge", KnowledgeTests.class);
    groups.put("threads", ThreadTests.class);
    Class<?> group = args.length == 1 ? groups.get(args[0]) : null;
    if (group == null) {
      System.err.println("usage: TestMain " + String.join(" | ", groups.keySet()));
      System.exit(2);
    }
    int passed = 0;
    int failed = 0;
    int skipped = 0;
    for (var method : group.getDeclaredMethods()) {
      if (!java.lang.reflect.Modifier.isPublic(method.getModifiers())
          || !java.lang.reflect.Modifier.isStatic(method.getModifiers())
          || method.getParameterCount() != 0) {
        continue;
      }
      String name = group.getSimpleName() + "." + method.getName();
      try {
        method.invoke(null);
        ++passed;
        System.out.println("PASS " + name);
      } catch (java.lang.reflect.InvocationTargetException wrapped) {
        Throwable cause = wrapped.getCause();
        if (cause instanceof Skipped) {
          ++skipped;
          System.out.println("SKIP " + name + ": " + cause.getMessage());
        } else {
          ++failed;
          System.out.println("FAIL " + name + ": " + cause);
          cause.printStackTrace(System.out);
        }
      }
    }
    System.out.println(passed + " passed, " + failed + " failed, " + skipped
        + " skipped");
    if (failed > 0) {
      System.exit(1);
    }
    if (passed == 0) {
      System.exit(77);
    }
  }
}
