#include "korrin/coding/key_path.h"

namespace korrin::json {

std::string KeyPath::text() const {
  std::string text;
  for (const Step& step : steps_) {
    if (step.key.empty()) {
      text += '[' + std::to_string(step.index) + ']';
    } else {
      if (!text.empty()) text += '.';
      text += step.key;
    }
  }
  return text;
}

}  // namespace korrin::json
