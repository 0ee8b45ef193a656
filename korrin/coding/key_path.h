#pragma once

// The place of a value inside a document.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::json {

/// Keys and indices from the document down to a value.
class KeyPath {
 public:
  void enterKey(std::string_view key) { steps_.push_back({key, 0}); }
  void enterElement(std::size_t index) { steps_.push_back({{}, index}); }
  void leave() { steps_.pop_back(); }

  /// Such as "items[3].style.labelScale"; empty for the document itself.
  std::string text() const;

 private:
  struct Step {
    std::string_view key;  // empty for an element of a list
    std::size_t index;
  };
  std::vector<Step> steps_;
};

}  // namespace korrin::json
