#pragma once

// korrin schema: what documents and reports look like, for programs that check or generate code.

#include <array>
#include <string>

#include "korrin/coding/coding_options.h"
#include "korrin/foundation/enumeration.h"

#include "commands/command.h"

namespace korrin::host {

enum class SchemaSubject { document, report, assets };

struct SchemaOptions {
  SchemaSubject subject = SchemaSubject::document;
  DateStrategy dates = DateStrategy::iso8601;  ///< Of documents; reports hold none.
};

/// The schema of project documents as JSON text, indented, without a final line break.
std::string documentSchema(DateStrategy dates);

/// The schema of what `korrin check --format json` prints.
std::string reportSchema();

/// The schema of what `korrin asset --format json` prints.
std::string assetReportSchema();

/// Prints the schema that is asked for.
ExitCode printSchema(const SchemaOptions& options, Console& console);

Command schemaCommand();

}  // namespace korrin::host

namespace korrin {

template <>
struct CaseTable<host::SchemaSubject> {
  static constexpr std::array cases = {Case{host::SchemaSubject::document, "document"},
                                       Case{host::SchemaSubject::report, "report"},
                                       Case{host::SchemaSubject::assets, "assets"}};
};

}  // namespace korrin
