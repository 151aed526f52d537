package quorel.engine;

/**
 * A native handle held by a Java object. An owning object deletes its native
 * object on the first close(); later calls do nothing. An object still bound
 * to an open analyzer refuses to close, since the analyzer reads it.
 */
abstract class NativeObject implements AutoCloseable {
  private volatile long handle;
  private boolean owner;
  // Open analyzers bound to this object; guarded by the object's lock, as
  // close() is, so that no analyzer binds an object while it is deleted.
  private int users;

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

  /** Counts one more analyzer bound to this object; returns the handle. */
  final synchronized long retain() {
    long value = live();
    ++users;
    return value;
  }

  final synchronized void release() {
    --users;
  }

  /** Deletes the native object of `value`. */
  abstract void delete(long value);

  @Override
  public final synchronized void close() {
    long value = handle;
    if (value == 0) {
      return;
    }
    if (users > 0) {
      throw new IllegalStateException(getClass().getSimpleName()
          + " is still bound to " + users + " open analyzer(s)");
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
