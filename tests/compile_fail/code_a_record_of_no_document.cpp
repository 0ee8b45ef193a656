// A finding has a table of its fields, but no document holds it.

#include "korrin/model/document_coding.h"
#include "korrin/preflight/preflight_issue.h"

#ifdef KORRIN_WRONG
using Coded = korrin::PreflightIssue;
#else
using Coded = korrin::PreflightRule;
#endif

std::string encoded(const Coded& value) { return korrin::encodeJSON(value); }
