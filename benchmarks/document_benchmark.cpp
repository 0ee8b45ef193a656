// Reading and writing documents, beside the peers a program would otherwise use, in one run.

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <simdjson.h>

#include "korrin/model/document_coding.h"

#include "benchmarks/support/plain_reading.h"
#include "benchmarks/support/plain_writing.h"
#include "benchmarks/support/plot_generator.h"

namespace korrin::benchmarks {
namespace {

class NlohmannNode {
 public:
  explicit NlohmannNode(const nlohmann::json& value) : value_(&value) {}

  NlohmannNode at(const char* key) const { return NlohmannNode(value_->at(key)); }
  std::optional<NlohmannNode> find(const char* key) const {
    const auto found = value_->find(key);
    if (found == value_->end() || found->is_null()) return std::nullopt;
    return NlohmannNode(*found);
  }
  const std::string& text() const { return value_->get_ref<const std::string&>(); }
  bool boolean() const { return value_->get_ref<const bool&>(); }
  double number() const {
    if (!value_->is_number()) throw std::runtime_error("not a number");
    return value_->get<double>();
  }
  std::int64_t integer() const {
    if (!value_->is_number_integer()) throw std::runtime_error("not an integer");
    return value_->get<std::int64_t>();
  }
  template <class Visit>
  void elements(Visit visit) const {
    for (const auto& element : value_->get_ref<const nlohmann::json::array_t&>())
      visit(NlohmannNode(element));
  }

 private:
  const nlohmann::json* value_;
};

class SimdjsonNode {
 public:
  explicit SimdjsonNode(simdjson::dom::element value) : value_(value) {}

  SimdjsonNode at(const char* key) const { return SimdjsonNode(value_.at_key(key).value()); }
  std::optional<SimdjsonNode> find(const char* key) const {
    simdjson::dom::element found;
    if (value_.at_key(key).get(found) != simdjson::SUCCESS || found.is_null()) return std::nullopt;
    return SimdjsonNode(found);
  }
  std::string_view text() const { return value_.get_string().value(); }
  bool boolean() const { return value_.get_bool().value(); }
  double number() const { return value_.get_double().value(); }
  std::int64_t integer() const { return value_.get_int64().value(); }
  template <class Visit>
  void elements(Visit visit) const {
    const simdjson::dom::array array = value_.get_array().value();
    for (const simdjson::dom::element element : array) visit(SimdjsonNode(element));
  }

 private:
  simdjson::dom::element value_;
};

std::string document(std::size_t itemCount, const EncodingOptions& options = {}) {
  return encodeJSON(generatedPlot(itemCount), options);
}

template <class Read>
void read(benchmark::State& state, const std::string& text, Read readOnce) {
  for (auto _ : state) benchmark::DoNotOptimize(readOnce(text));
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

std::size_t itemCount(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void decode(benchmark::State& state) {
  read(state, document(itemCount(state)),
       [](const auto& text) { return decodeJSON<KorrinProject>(text); });
}
void decodeIndented(benchmark::State& state) {
  read(state, document(itemCount(state), {.prettyPrinted = true}),
       [](const auto& text) { return decodeJSON<KorrinProject>(text); });
}
void decodeOtherKeyOrder(benchmark::State& state) {
  read(state, document(itemCount(state), {.sortedKeys = true}),
       [](const auto& text) { return decodeJSON<KorrinProject>(text); });
}
void decodeNlohmann(benchmark::State& state) {
  read(state, document(itemCount(state)),
       [](const auto& text) { return plain::project(NlohmannNode(nlohmann::json::parse(text))); });
}
void decodeSimdjson(benchmark::State& state) {
  // The parser keeps its buffers from one document to the next, as its users are advised.
  simdjson::dom::parser parser;
  read(state, document(itemCount(state)), [&parser](const auto& text) {
    return plain::project(SimdjsonNode(parser.parse(text).value()));
  });
}

void encode(benchmark::State& state) {
  const KorrinProject project = generatedPlot(itemCount(state));
  for (auto _ : state) benchmark::DoNotOptimize(encodeJSON(project));
}
void encodeNlohmann(benchmark::State& state) {
  const std::string text = document(itemCount(state));
  const plain::Project project = plain::project(NlohmannNode(nlohmann::json::parse(text)));
  for (auto _ : state) benchmark::DoNotOptimize(plain::tree(project).dump());
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(30)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(decode)->Apply(sizes);
BENCHMARK(decodeIndented)->Apply(sizes);
BENCHMARK(decodeOtherKeyOrder)->Apply(sizes);
BENCHMARK(decodeSimdjson)->Apply(sizes);
BENCHMARK(decodeNlohmann)->Apply(sizes);
BENCHMARK(encode)->Apply(sizes);
BENCHMARK(encodeNlohmann)->Apply(sizes);

}  // namespace
}  // namespace korrin::benchmarks
