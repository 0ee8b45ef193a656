// Documents hold records, enumerations and lists of them, nothing else by itself.

#include "korrin/model/document_coding.h"

#ifdef KORRIN_WRONG
using Coded = korrin::Text;
#else
using Coded = korrin::ProjectNote;
#endif

std::string encoded(const Coded& value) { return korrin::encodeJSON(value); }
