#include "commands/schema_command.h"

#include <memory>

#include "assets/asset_report.h"
#include "commands/parameters.h"
#include "findings/check_report.h"
#include "schema/embedded_pages.h"
#include "schema/schema_builder.h"

namespace korrin::host {
namespace {

std::string urn(const std::string& name, std::int64_t version) {
  return "urn:korrincore:" + name + ":" + std::to_string(version);
}

}  // namespace

std::string documentSchema(DateStrategy dates) {
  std::string id = urn("document", KorrinProject::currentSchemaVersion);
  if (dates != DateStrategy::iso8601) id += ":" + std::string(rawValue(dates));
  SchemaBuilder builder({Page(documentFormatPage())}, AbsentFields::leftOut, dates);
  return builder.schemaOf<KorrinProject>(id).dump(2);
}

std::string reportSchema() {
  SchemaBuilder builder(
      {Page(checkReportPage()), Page(assetReportPage()), Page(documentFormatPage())},
      AbsentFields::null, DateStrategy::iso8601);
  return builder.schemaOf<CheckReport>(urn("check-report", ReportVersion::value)).dump(2);
}

std::string assetReportSchema() {
  SchemaBuilder builder({Page(assetReportPage()), Page(documentFormatPage())}, AbsentFields::null,
                        DateStrategy::iso8601);
  return builder.schemaOf<AssetReport>(urn("asset-report", ReportVersion::value)).dump(2);
}

ExitCode printSchema(const SchemaOptions& options, Console& console) {
  switch (options.subject) {
    case SchemaSubject::document:
      console.out << documentSchema(options.dates) << '\n';
      break;
    case SchemaSubject::report:
      console.out << reportSchema() << '\n';
      break;
    case SchemaSubject::assets:
      console.out << assetReportSchema() << '\n';
      break;
  }
  return ExitCode::clean;
}

Command schemaCommand() {
  const auto options = std::make_shared<SchemaOptions>();
  CommandPage page{
      .name = "schema",
      .summary = "Print the JSON Schema of plots or of reports.",
      .arguments = {choice("SUBJECT", "", "What is described", options->subject)},
      .options = {dates(options->dates, "How dates stand in the plots")},
      .passages = {{.prose =
                        "The report is what korrin check --format json prints, assets what korrin "
                        "asset --format json does. The first of several words is the default."}}};
  return {std::move(page), [options](Console& console) { return printSchema(*options, console); }};
}

}  // namespace korrin::host
