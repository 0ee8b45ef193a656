// The bytes of a text are shared and never change.

#include "korrin/foundation/text.h"

void change(korrin::Text& text) {
#ifdef KORRIN_WRONG
  text.str() += "!";
#else
  text = text.str() + "!";
#endif
}
