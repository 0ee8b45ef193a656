#include "tests/support/hostile_pdfs.h"

#include <cstdint>

#include "korrin/validation/pdf/pdf_budget.h"

#include "tests/support/pdf_builder.h"

namespace korrin::test {
namespace {

// Far beyond every limit, and made quickly.
constexpr std::size_t bombSize = std::size_t{128} << 20;

std::string text(std::size_t value) { return std::to_string(value); }

std::string repeated(std::string_view unit, std::size_t size) {
  std::string result;
  result.reserve(size + unit.size());
  while (result.size() < size) result += unit;
  return result;
}

std::string pageInStream(std::string_view entries, std::string_view data) {
  return tree()
      .stream(4, "/Type/ObjStm/N 1/First 4" + std::string(entries), data)
      .pretendIn(3, 4, 0)
      .crossReferenceStream(9)
      .file();
}

// A document that ends in a cross-reference stream made by hand.
std::string withCrossReferences(std::string_view entries, std::string_view data) {
  PdfBuilder pdf = wholeTree();
  const std::size_t section = pdf.offset();
  return pdf.stream(9, "/Type/XRef/Root 1 0 R" + std::string(entries), data)
      .raw("startxref\n" + text(section) + "\n%%EOF\n")
      .file();
}

std::string bombInObjectStream(std::size_t) {
  return pageInStream("/Filter/FlateDecode", deflatedRun(' ', bombSize));
}

std::string doubleBombInObjectStream(std::size_t) {
  return pageInStream("/Filter[/FlateDecode/FlateDecode]", deflated(deflatedRun(' ', bombSize)));
}

std::string bombInCrossReferences(std::size_t) {
  return withCrossReferences("/Size 4/W[1 4 2]/Filter/FlateDecode", deflatedRun('\0', bombSize));
}

std::string doubleBombInCrossReferences(std::size_t) {
  return withCrossReferences("/Size 4/W[1 4 2]/Filter[/FlateDecode/FlateDecode]",
                             deflated(deflatedRun('\0', bombSize)));
}

std::string hugeColumnsInObjectStream(std::size_t) {
  return pageInStream("/Filter/FlateDecode/DecodeParms<</Predictor 12/Columns 2147483647>>",
                      deflated("3 0 <</MediaBox[0 0 3 3]>>"));
}

std::string hugeColumnsInCrossReferences(std::size_t) {
  return withCrossReferences(
      "/Size 4/W[1 4 2]/Filter/FlateDecode/DecodeParms<</Predictor 12/Columns "
      "9900000000000000000>>",
      deflated("nothing"));
}

std::string tenMillionEntriesClaimed(std::size_t) {
  return withCrossReferences("/Size 10000000/Index[0 10000000]/W[1 4 2]", "nothing");
}

std::string tenMillionEntriesPresent(std::size_t) {
  return withCrossReferences("/Size 10000000/W[1 4 2]/Filter/FlateDecode",
                             deflatedRun('\0', 70'000'000));
}

// Eight streams of the largest size, whose rows are the most costly to undo, stand before the page.
std::string manyPredictedStreams(std::size_t) {
  const std::string rows = deflatedRun('\4', (std::size_t{8} << 20) - 1000);
  PdfBuilder pdf;
  std::string kids;
  for (std::uint32_t i = 0; i < 8; ++i) {
    pdf.stream(100 + i,
               "/Type/ObjStm/N 1/First 4/Filter/FlateDecode"
               "/DecodeParms<</Predictor 14/Columns 4096/Colors 3>>",
               rows);
    pdf.pretendIn(200 + i, 100 + i, 0);
    kids += text(200 + i) + " 0 R ";
  }
  return pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + kids + "3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .crossReferenceStream(9)
      .file();
}

// As much cross-reference data as may be kept, and then an object stream of the largest size whose
// first unpacking is as large: behind the compressed data stands what nothing reads.
std::string largestOfEverything(std::size_t) {
  constexpr std::size_t largest = pdf::limits::inflatedStream;
  std::string data = "3 0 <</MediaBox[0 0 3 3]>>";
  data.resize(largest - 100, ' ');
  std::string inner = deflated(data);
  inner.resize(largest - 100);
  constexpr std::size_t rows = pdf::limits::crossReferenceBytes / 2 - 100;
  PdfBuilder pdf = tree();
  pdf.stream(4, "/Type/ObjStm/N 1/First 4/Filter[/FlateDecode/FlateDecode]", deflated(inner));
  pdf.pretendIn(3, 4, 0).crossReferenceStream(5);
  for (std::uint32_t number = 6; number < 8; ++number) {
    const std::size_t older = pdf.lastSection();
    const std::size_t section = pdf.offset();
    pdf.stream(number,
               "/Type/XRef/Root 1 0 R/Size 9/Index[9 1]/W[1 4 2]/Filter/FlateDecode/Prev " +
                   text(number == 6 ? older : pdf.file().rfind("6 0 obj")),
               deflatedRun('\0', rows))
        .raw("startxref\n" + text(section) + "\n%%EOF\n");
  }
  return pdf.file();
}

std::string objectStreamChain(std::size_t) {
  PdfBuilder pdf = tree();
  pdf.pretendIn(3, 10, 0);
  for (std::uint32_t i = 10; i < 5000; ++i) pdf.pretendIn(i, i + 1, 0);
  return pdf.crossReferenceStream(9).file();
}

// Each stream's length is said to be in the next object stream.
std::string lengthChain(std::size_t size) {
  PdfBuilder pdf = tree();
  pdf.pretendIn(3, 10, 0);
  for (std::uint32_t i = 10; pdf.offset() < size; i += 2) {
    pdf.stream(i, "/Type/ObjStm/N 1/First 5/Length " + text(i + 1) + " 0 R", "3 0 <<>>");
    pdf.pretendIn(i + 1, i + 2, 0);
  }
  return pdf.crossReferenceStream(9).file();
}

std::string referenceChain(std::size_t size) {
  PdfBuilder pdf = tree();
  for (std::uint32_t i = 3; pdf.offset() < size; ++i) pdf.object(i, text(i + 1) + " 0 R");
  return pdf.table().file();
}

std::string deepTree(std::size_t size) {
  PdfBuilder pdf = tree();
  for (std::uint32_t i = 3; pdf.offset() < size; ++i)
    pdf.object(i, "<</Kids[" + text(i + 1) + " 0 R]>>");
  return pdf.table().file();
}

std::string wideTreeOf(std::string_view unit, std::size_t size) {
  PdfBuilder pdf;
  return pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + repeated(unit, size) + "3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .table()
      .file();
}

std::string wideTreeOfNodes(std::size_t size) { return wideTreeOf("<</Kids[]>>", size); }
std::string wideTreeOfNulls(std::size_t size) { return wideTreeOf("null ", size); }
std::string wideTreeOfNumbers(std::size_t size) { return wideTreeOf("7 ", size); }

std::string loopingTree(std::size_t) {
  return tree().object(3, "<</Kids[2 0 R 2 0 R 3 0 R]>>").table().file();
}

std::string bushyTree(std::size_t) {
  PdfBuilder pdf = tree();
  for (std::uint32_t i = 3; i < 60; ++i)
    pdf.object(i, "<</Kids[" + repeated(text(i + 1) + " 0 R ", 40) + "]>>");
  return pdf.object(60, "<</Kids[]>>").table().file();
}

// Every child is the same large object, made of `unit`.
std::string objectRepeatedly(std::string_view unit, std::size_t size) {
  PdfBuilder pdf;
  return pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + repeated("4 0 R ", 6000) + "3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .object(4, "<<" + repeated(unit, size) + "/Kids[]>>")
      .table()
      .file();
}

std::string largeObjectRepeatedly(std::size_t size) {
  return objectRepeatedly("/A 1/B[2]/C(3)", size);
}
std::string shortCommentsRepeatedly(std::size_t size) { return objectRepeatedly("%\n", size); }
std::string escapedKeysRepeatedly(std::size_t size) { return objectRepeatedly("/#41", size); }
std::string boxesRepeatedly(std::size_t size) { return objectRepeatedly("/MediaBox 7", size); }

std::string keysOfEncryption(std::size_t size) {
  return wholeTree()
      .object(5, "<<" + repeated("/A/A", size) + "/Filter/Standard>>")
      .table("/Root 1 0 R/Encrypt 5 0 R")
      .file();
}

std::string previousLoop(std::size_t) {
  PdfBuilder pdf = tree();
  return pdf.table("/Root 1 0 R/Prev " + text(pdf.offset())).file();
}

std::string previousChain(std::size_t size) {
  PdfBuilder pdf = wholeTree();
  while (pdf.offset() < size) pdf.table();
  return pdf.file();
}

std::string nestedArrays(std::size_t) {
  return onePage("/Nested " + repeated("[", 1'000'000) + repeated("]", 1'000'000) +
                 "/MediaBox[0 0 3 3]");
}

std::string nestedDictionaries(std::size_t) {
  return onePage("/Nested " + repeated("<</A", 4'000'000) + "/MediaBox[0 0 3 3]");
}

std::string nestedKids(std::size_t size) {
  return PdfBuilder()
      .object(1, "<</Pages " + repeated("<</Kids[", size) + "/MediaBox[0 0 3 3]")
      .table()
      .file();
}

std::string longString(std::size_t size) {
  return onePage("/String(" + repeated("(\\()", size) + ")/MediaBox[0 0 3 3]");
}

std::string unclosedString(std::size_t size) {
  return onePage("/String(" + repeated("(", size) + "/MediaBox[0 0 3 3]");
}

std::string longHexString(std::size_t size) {
  return onePage("/String<" + repeated("0", size) + ">/MediaBox[0 0 3 3]");
}

std::string longName(std::size_t size) {
  return onePage("/Name" + repeated("#41", size) + " 1/MediaBox[0 0 3 3]");
}

std::string longNumber(std::size_t size) {
  return onePage("/MediaBox[0 0 3." + repeated("0", size) + " 3]");
}

std::string longComment(std::size_t size) {
  return onePage(repeated("%", size) + "\n/MediaBox[0 0 3 3]");
}

std::string manyEntries(std::size_t size) {
  return onePage(repeated("/A 0 ", size) + "/MediaBox[0 0 3 3]");
}

std::string missingEndOfStreams(std::size_t size) {
  return wholeTree()
      .raw(repeated("9 0 obj<<>>stream\n", size))
      .raw("trailer<</Root 1 0 R>>")
      .file();
}

// Two thousand object streams, each of which is looked for, have the rest of the file for their
// data.
std::string streamsBefore(std::string_view dictionary, std::string_view rest) {
  PdfBuilder pdf = tree();
  std::string kids;
  for (std::uint32_t i = 0; i < 2000; ++i) {
    pdf.pretendAt(1000 + i, pdf.offset());
    pdf.raw(text(1000 + i) + " 0 obj<</Type/ObjStm/N 1/First 5" + std::string(dictionary));
    kids += text(5000 + i) + " 0 R ";
    pdf.pretendIn(5000 + i, 1000 + i, 0);
  }
  pdf.raw(rest).object(2, "<</Kids[" + kids + "3 0 R]>>");
  return pdf.crossReferenceStream(9).file();
}

std::string streamsOfUnknownLength(std::size_t size) {
  return streamsBefore(">>stream\n", repeated("e", size));
}

std::string streamsOfWrongLength(std::size_t size) {
  return streamsBefore("/Length 0>>stream\n", repeated("stream", size));
}

std::string streamBeforeBlanks(std::size_t size) {
  PdfBuilder pdf = tree();
  std::string kids;
  pdf.object(4, "<</Type/ObjStm/N 1/First 5/Length 0>>stream\n" + repeated(" ", size));
  for (std::uint32_t i = 0; i < 4000; ++i) {
    kids += text(5000 + i) + " 0 R ";
    pdf.pretendIn(5000 + i, 4, 0);
  }
  return pdf.object(2, "<</Kids[" + kids + "3 0 R]>>").crossReferenceStream(9).file();
}

// A table whose look-ups pass what stands between its parts each time.
std::string tableWith(std::string_view filling) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + repeated("7 0 R ", 24'000) + "3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .table();
  const std::size_t older = pdf.lastSection();
  const std::size_t section = pdf.offset();
  return pdf
      .raw("xref\n" + std::string(filling) + "trailer<</Root 1 0 R/Prev " + text(older) +
           ">>\nstartxref\n" + text(section) + "\n%%EOF\n")
      .file();
}

std::string manySubsections(std::size_t size) { return tableWith(repeated("9 0\n", size)); }

std::string blanksInTable(std::size_t size) {
  return tableWith("9 0" + repeated(" ", size) + "\n");
}

std::string longWordsForObjects(std::size_t size) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>").object(2, "<</Kids[" + repeated("7 0 R ", 24'000) + "3 0 R]>>");
  pdf.pretendAt(7, pdf.offset());
  return pdf.raw("7 0 obj" + repeated("j", size)).crossReferenceStream(9).file();
}

std::string manyObjects(std::size_t size) {
  return wholeTree().raw(repeated("9 0 obj ", size)).raw("trailer<</Root 1 0 R>>").file();
}

std::string manyObjectsInDisorder(std::size_t size) {
  PdfBuilder pdf = wholeTree();
  std::uint32_t number = 1;
  std::string objects;
  for (std::size_t i = 0; i < 1'000'000 && objects.size() < size; ++i) {
    number = number * 1664525 + 1013904223;
    objects += text(4 + (number >> 12)) + " 0 obj ";
  }
  return pdf.raw(objects).raw("trailer<</Root 1 0 R>>").file();
}

std::string manyTrailers(std::size_t size) {
  return wholeTree()
      .raw("trailer<</Root 1 0 R>>\n")
      .raw(repeated("trailer<</Root 3 0 R>>\n", size))
      .file();
}

std::string manyLongTrailers(std::size_t size) {
  return wholeTree().raw(repeated("trailer<</A[", size)).file();
}

std::string manySmallObjectStreams(std::size_t size) {
  PdfBuilder pdf = wholeTree();
  for (std::uint32_t i = 10; pdf.offset() < size; ++i) pdf.objectStream(i, {{9, "null"}});
  return pdf.raw("trailer<</Root 1 0 R>>").file();
}

std::string largeObjectStreamHead(std::size_t size) {
  const std::string head = repeated("8 0 ", (std::size_t{7} << 20)) + "3 0 ";
  PdfBuilder pdf;
  return pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + repeated("3 0 R ", 6 * 1000) + "]>>")
      .stream(4, "/Type/ObjStm/N 9999999/First " + text(head.size()) + "/Filter/FlateDecode",
              deflated(head + "<</Kids[]>>"))
      .pretendIn(3, 4, 0)
      .raw("%" + repeated("x", size) + "\n")
      .crossReferenceStream(9)
      .file();
}

std::string manyIndexRanges(std::size_t size) {
  return withCrossReferences("/Size 4/W[1 4 2]/Index[" + repeated("9 0 ", size) + "0 4]",
                             "nothing");
}

std::string manyWordsLikeObjects(std::size_t size) {
  return wholeTree().raw(repeated("obj 0 obj 00000 obj ", size)).file();
}

std::string slashesAmongObjects(std::size_t size) {
  return wholeTree().raw(repeated("/X", size)).raw("trailer<</Root 1 0 R>>").file();
}

std::string onlyDigits(std::size_t size) {
  return wholeTree().raw(repeated("1", size)).raw(" 0 obj trailer<</Root 1 0 R>>").file();
}

}  // namespace

const std::vector<HostilePdf>& hostilePdfs() {
  static const std::vector<HostilePdf> documents = {
      {"BombInObjectStream", bombInObjectStream, PdfOutcome::unreadable},
      {"DoubleBombInObjectStream", doubleBombInObjectStream, PdfOutcome::unreadable},
      {"BombInCrossReferences", bombInCrossReferences, PdfOutcome::unreadable},
      {"DoubleBombInCrossReferences", doubleBombInCrossReferences, PdfOutcome::unreadable},
      {"HugeColumnsInObjectStream", hugeColumnsInObjectStream, PdfOutcome::unreadable},
      {"HugeColumnsInCrossReferences", hugeColumnsInCrossReferences, PdfOutcome::box},
      {"TenMillionEntriesClaimed", tenMillionEntriesClaimed, PdfOutcome::box},
      {"TenMillionEntriesPresent", tenMillionEntriesPresent, PdfOutcome::unreadable},
      {"ManyPredictedStreams", manyPredictedStreams, PdfOutcome::unreadable},
      {"LargestOfEverything", largestOfEverything, PdfOutcome::box},
      {"ObjectStreamChain", objectStreamChain, PdfOutcome::unreadable},
      {"LengthChain", lengthChain, PdfOutcome::unreadable},
      {"ReferenceChain", referenceChain, PdfOutcome::unreadable},
      {"DeepTree", deepTree, PdfOutcome::unreadable},
      {"WideTreeOfNodes", wideTreeOfNodes, PdfOutcome::unreadable},
      {"WideTreeOfNulls", wideTreeOfNulls, PdfOutcome::box},
      {"WideTreeOfNumbers", wideTreeOfNumbers, PdfOutcome::box},
      {"LoopingTree", loopingTree, PdfOutcome::unreadable},
      {"BushyTree", bushyTree, PdfOutcome::unreadable},
      {"LargeObjectRepeatedly", largeObjectRepeatedly, PdfOutcome::unreadable},
      {"ShortCommentsRepeatedly", shortCommentsRepeatedly, PdfOutcome::unreadable},
      {"EscapedKeysRepeatedly", escapedKeysRepeatedly, PdfOutcome::unreadable},
      {"BoxesRepeatedly", boxesRepeatedly, PdfOutcome::unreadable},
      {"KeysOfEncryption", keysOfEncryption, PdfOutcome::locked},
      {"PreviousLoop", previousLoop, PdfOutcome::unreadable},
      {"PreviousChain", previousChain, PdfOutcome::unreadable},
      {"NestedArrays", nestedArrays, PdfOutcome::unreadable},
      {"NestedDictionaries", nestedDictionaries, PdfOutcome::unreadable},
      {"NestedKids", nestedKids, PdfOutcome::unreadable},
      {"LongString", longString, PdfOutcome::box},
      {"UnclosedString", unclosedString, PdfOutcome::noBox},
      {"LongHexString", longHexString, PdfOutcome::box},
      {"LongName", longName, PdfOutcome::box},
      {"LongNumber", longNumber, PdfOutcome::box},
      {"LongComment", longComment, PdfOutcome::box},
      {"ManyEntries", manyEntries, PdfOutcome::box},
      {"MissingEndOfStreams", missingEndOfStreams, PdfOutcome::box},
      {"StreamsOfUnknownLength", streamsOfUnknownLength, PdfOutcome::unreadable},
      {"StreamsOfWrongLength", streamsOfWrongLength, PdfOutcome::unreadable},
      {"StreamBeforeBlanks", streamBeforeBlanks, PdfOutcome::unreadable},
      {"BlanksInTable", blanksInTable, PdfOutcome::unreadable},
      {"LongWordsForObjects", longWordsForObjects, PdfOutcome::unreadable},
      {"ManyObjects", manyObjects, PdfOutcome::box},
      {"ManyObjectsInDisorder", manyObjectsInDisorder, PdfOutcome::box},
      {"ManyTrailers", manyTrailers, PdfOutcome::unreadable},
      {"ManyLongTrailers", manyLongTrailers, PdfOutcome::unreadable},
      {"ManySmallObjectStreams", manySmallObjectStreams, PdfOutcome::unreadable},
      {"LargeObjectStreamHead", largeObjectStreamHead, PdfOutcome::unreadable},
      {"ManySubsections", manySubsections, PdfOutcome::unreadable},
      {"ManyIndexRanges", manyIndexRanges, PdfOutcome::box},
      {"ManyWordsLikeObjects", manyWordsLikeObjects, PdfOutcome::unreadable},
      {"SlashesAmongObjects", slashesAmongObjects, PdfOutcome::box},
      {"OnlyDigits", onlyDigits, PdfOutcome::box}};
  return documents;
}

}  // namespace korrin::test
