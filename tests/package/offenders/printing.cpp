#include <cstdio>

void report(int count) { std::printf("%d items\n", count); }
