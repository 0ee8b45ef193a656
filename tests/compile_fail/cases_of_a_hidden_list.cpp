// There is no list of all preflight rules.

#include "korrin/preflight/preflight_issue.h"

#ifdef KORRIN_WRONG
using Listed = korrin::PreflightRule;
#else
using Listed = korrin::PreflightSeverity;
#endif

auto all() { return korrin::allCases<Listed>(); }
