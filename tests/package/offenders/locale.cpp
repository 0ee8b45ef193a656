#include <locale>
#include <string>

std::string decimalPoint() {
  return {std::use_facet<std::numpunct<char>>(std::locale()).decimal_point()};
}
