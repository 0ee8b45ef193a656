int nextNumber() {
  static int last = 0;
  return ++last;
}
