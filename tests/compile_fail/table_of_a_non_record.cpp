// Only a record has a field table.

#include "korrin/model/stage_values.h"

#ifdef KORRIN_WRONG
using Tabled = korrin::UUID;
#else
using Tabled = korrin::StagePoint;
#endif

auto fields() { return korrin::fieldsOf<Tabled>(); }
