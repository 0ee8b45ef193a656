int nextNumber() {
  thread_local int last = 0;
  return ++last;
}
