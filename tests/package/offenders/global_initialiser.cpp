#include <string>

const std::string greeting = "A text that is too long for a short string's own room";
