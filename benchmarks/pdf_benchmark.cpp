// The first page's box of a document with 4,000 pages, read here and by qpdf, and the time that
// hostile documents of 16 MB take.

#include <cstdint>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include "korrin/foundation/precondition.h"
#include "korrin/validation/pdf/first_page_box.h"

#include "tests/support/hostile_pdf_streams.h"
#include "tests/support/hostile_pdfs.h"
#include "tests/support/pdf_builder.h"

namespace {

using namespace korrin;

constexpr std::uint32_t branches = 40;
constexpr std::uint32_t pagesPerBranch = 100;

std::string reference(std::uint32_t number) { return std::to_string(number) + " 0 R "; }

// The objects of a tree with 4,000 pages; the content of page i is object 10,000 + i.
std::vector<std::pair<std::uint32_t, std::string>> treeOfPages() {
  std::vector<std::pair<std::uint32_t, std::string>> objects;
  objects.emplace_back(1, "<</Type/Catalog/Pages 2 0 R>>");
  std::string kids;
  for (std::uint32_t branch = 0; branch < branches; ++branch) kids += reference(10 + branch);
  objects.emplace_back(2, "<</Type/Pages/Count 4000/MediaBox[0 0 595 842]/Kids[" + kids + "]>>");
  for (std::uint32_t branch = 0; branch < branches; ++branch) {
    std::string pages;
    for (std::uint32_t i = 0; i < pagesPerBranch; ++i) {
      const std::uint32_t page = branch * pagesPerBranch + i;
      pages += reference(100 + page);
      objects.emplace_back(100 + page, "<</Type/Page/Parent " + reference(10 + branch) +
                                           "/Resources<</ProcSet[/PDF/Text]>>/Contents " +
                                           reference(10'000 + page) + ">>");
    }
    objects.emplace_back(10 + branch, "<</Type/Pages/Parent 2 0 R/Count 100/Kids[" + pages + "]>>");
  }
  return objects;
}

test::PdfBuilder contents() {
  const std::string content = test::deflated("BT /F1 24 Tf 72 720 Td (A page of text) Tj ET");
  test::PdfBuilder pdf;
  for (std::uint32_t page = 0; page < branches * pagesPerBranch; ++page)
    pdf.stream(10'000 + page, "/Filter/FlateDecode", content);
  return pdf;
}

const std::string& documentWithTable() {
  static const std::string document = [] {
    test::PdfBuilder pdf = contents();
    for (const auto& [number, body] : treeOfPages()) pdf.object(number, body);
    return pdf.table().file();
  }();
  return document;
}

const std::string& documentWithObjectStreams() {
  static const std::string document = [] {
    test::PdfBuilder pdf = contents();
    const auto objects = treeOfPages();
    std::uint32_t stream = 20'000;
    for (auto begin = objects.begin(); begin != objects.end();) {
      const auto end = begin + std::min<std::ptrdiff_t>(100, objects.end() - begin);
      pdf.objectStream(stream++, {begin, end});
      begin = end;
    }
    return pdf.crossReferenceStream(stream).file();
  }();
  return document;
}

void readHere(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    const PdfPage page = readFirstPage(test::asBytes(document));
    precondition(page.width == 595 && page.height == 842, "the box is wrong");
  }
}

double number(QPDFObjectHandle box, int index) { return box.getArrayItem(index).getNumericValue(); }

void checkBox(QPDFObjectHandle box) {
  precondition(number(box, 2) - number(box, 0) == 595 && number(box, 3) - number(box, 1) == 842,
               "the peer's box is wrong");
}

// The peer's own list of pages, which also hands down what pages inherit.
void readByPageList(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    QPDF pdf;
    pdf.processMemoryFile("document", document.data(), document.size());
    pdf.pushInheritedAttributesToPage();
    QPDFObjectHandle page = pdf.getAllPages().at(0);
    checkBox(page.getKey("/MediaBox"));
  }
}

// The least that the peer can be asked for: the way down to the first leaf.
void readByFirstLeaf(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    QPDF pdf;
    pdf.processMemoryFile("document", document.data(), document.size());
    QPDFObjectHandle node = pdf.getRoot().getKey("/Pages");
    QPDFObjectHandle box = node.getKey("/MediaBox");
    while (node.getKey("/Kids").isArray()) {
      node = node.getKey("/Kids").getArrayItem(0);
      if (node.hasKey("/MediaBox")) box = node.getKey("/MediaBox");
    }
    checkBox(box);
  }
}

void readHostile(benchmark::State& state, const test::HostilePdf& hostile) {
  const std::string document = hostile.make(std::size_t{16} << 20);
  for (auto _ : state) benchmark::DoNotOptimize(readFirstPage(test::asBytes(document)));
}

}  // namespace

int main(int argc, char** argv) {
  using benchmark::RegisterBenchmark;
  for (const auto& [name, document] : {std::pair("table", &documentWithTable()),
                                       std::pair("object-streams", &documentWithObjectStreams())}) {
    const std::string prefix = std::string("page-box/") + name + '/';
    const auto add = [&](const char* reader, void (*read)(benchmark::State&, const std::string&)) {
      RegisterBenchmark((prefix + reader).c_str(), read, *document);
    };
    add("korrin", readHere);
    add("qpdf-first-leaf", readByFirstLeaf);
    add("qpdf-page-list", readByPageList);
  }
  for (const auto* list :
       {&test::hostilePdfs(), &test::hostilePdfStreams(), &test::encryptedHostilePdfs()})
    for (const test::HostilePdf& hostile : *list)
      RegisterBenchmark((std::string("hostile/") + hostile.name).c_str(), readHostile, hostile)
          ->Unit(benchmark::kMillisecond);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
