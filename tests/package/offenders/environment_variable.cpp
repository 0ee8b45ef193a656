#include <cstdlib>

const char* home() { return std::getenv("HOME"); }
