#include <iostream>

void report(int count) { std::cerr << count << " items\n"; }
