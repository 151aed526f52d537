package quorel.engine;

import java.util.concurrent.atomic.AtomicInteger;

/**
 * A native handle held by a Java object. An owning object deletes its native
 * object on the first close(); later calls do nothing. An object still bound
 * to an open analyzer refuses to close, since the analyzer reads it.
 */
abstract class NativeObject implements AutoCloseable {
  private volatile long handle;
  private boolean owner;
  private final AtomicInteger users = new AtomicInteger();

  /** Takes `value` as the handle; an owner deletes it on close. */
  final void attach(long value, boolean owns) {
    if (value == 0) {
      throw new OutOfMemoryError("the native " + getClass().getSimpleName()
          + " could not be created");
    }
    handle = value;
    owner = owns;
  }

  /** The native handle, 0 once closed. */
  public final long getHandle() {
    return handle;
  }

  public final boolean isClosed() {
    return handle == 0;
  }

  /** Whether close() deletes the native object. */
  public final boolean isOwner() {
    return owner;
  }

  /** The handle for a native call; throws once closed. */
  final long live() {
    long value = handle;
    if (value == 0) {
      throw new IllegalStateException(getClass().getSimpleName() + " is closed");
    }
    checkUsable();
    return value;
  }

  /** A further test before each native call; none by default. */
  void checkUsable() {}

  final void retain() {
    users.incrementAndGet();
  }

  final void release() {
    users.decrementAndGet();
  }

  /** Deletes the native object of `value`. */
  abstract void delete(long value);

  @Override
  public final synchronized void close() {
    long value = handle;
    if (value == 0) {
      return;
    }
    int count = users.get();
    if (count > 0) {
      throw new IllegalStateException(getClass().getSimpleName()
          + " is still bound to " + count + " open analyzer(s)");
    }
    handle = 0;
    if (owner) {
      delete(value);
    }
    closed();
  }

  /** Runs after the handle is dropped; for releasing what the object binds. */
  void closed() {}
}
