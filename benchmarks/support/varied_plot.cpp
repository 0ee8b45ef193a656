#include "benchmarks/support/varied_plot.h"

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>

#include "korrin/foundation/record.h"

namespace korrin::benchmarks {
namespace {

constexpr std::string_view plainLetters = "abcdefghijklm nopqrstuvwxyz 0123456789";
constexpr std::array<std::string_view, 6> wideLetters = {"é", "ü", "ø", "ł", "弦", "鼓"};

class Variation {
 public:
  template <class Value>
  void vary(Value&) {}  // identifiers, enumerations, integers and dates stay what they are
  void vary(double& value) { value = std::uniform_real_distribution(-1000.0, 10000.0)(random_); }
  void vary(Text& text) {
    if (!text.empty()) text = drawnText();
  }
  template <class Value>
  void vary(std::optional<Value>& value) {
    if (value) vary(*value);
  }
  template <class Element>
  void vary(List<Element>& list) {
    List<Element> varied;
    varied.reserve(list.size());
    for (Element element : list) {
      vary(element);
      varied.push_back(std::move(element));
    }
    list = std::move(varied);
  }
  template <RecordType Record>
  void vary(Record& record) {
    forEachField<Record>([&](const auto& field) { vary(record.*field.member); });
  }

 private:
  std::size_t between(std::size_t least, std::size_t most) {
    return std::uniform_int_distribution(least, most)(random_);
  }

  std::string drawnText() {
    const std::size_t size = between(1, 3) == 1 ? between(16, 48) : between(4, 15);
    const bool isWide = between(1, 10) == 1;
    std::string text;
    if (isWide) text = wideLetters[between(0, wideLetters.size() - 1)];
    while (text.size() < size) {
      // No letter takes more than three bytes, and a text of this size must not outgrow it.
      if (isWide && text.size() + 3 <= size && between(1, 4) == 1)
        text += wideLetters[between(0, wideLetters.size() - 1)];
      else
        text += plainLetters[between(0, plainLetters.size() - 1)];
    }
    return text;
  }

  std::mt19937_64 random_{43};
};

}  // namespace

KorrinProject withVariedContents(const KorrinProject& plot) {
  KorrinProject varied = plot;
  Variation().vary(varied);
  return varied;
}

}  // namespace korrin::benchmarks
