// The bytes of a text never change.

#include "korrin/foundation/text.h"

void change(korrin::Text& text) {
#ifdef KORRIN_WRONG
  std::string_view(text).front() = '!';
#else
  text = "!" + text.str().substr(1);
#endif
}
