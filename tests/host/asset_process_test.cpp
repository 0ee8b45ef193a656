// korrin asset, and korrin check with folders of images, as their callers see them.

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <unistd.h>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"

#include "asset_support.h"
#include "assets/sha256.h"
#include "scratch.h"
#include "tests/support/pdf_builder.h"

namespace korrin::host {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// What stands between "assetManifest": and the rest of the output.
List<AssetManifestEntry> manifestIn(const std::string& output) {
  const std::string_view start = "\"assetManifest\": ";
  const std::size_t begin = output.find(start) + start.size();
  const std::size_t end = output.find("\n]\n", begin);
  return decodeJSON<List<AssetManifestEntry>>(output.substr(begin, end + 2 - begin));
}

TEST(Sha256, IsSpelledAsInAManifest) {
  EXPECT_EQ(sha256({}), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(sha256(test::asBytes("abc")),
            "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Asset, PrintsAVerdictForEachFileAndTheManifestOfTheAccepted) {
  const Scratch scratch;
  scratch.write("logo.png", pngOf(120, 80));
  scratch.write("wall.png", pngOf(16'001, 1));
  scratch.write("rider.pdf", pdfOf("0 0 595 842"));
  scratch.write("notes.txt", "Stage plot\n");
  const Outcome outcome = scratch.korrin("asset logo.png wall.png rider.pdf notes.txt");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "");
  const std::string png = encodeJSON(entryFor(pngOf(120, 80), "logo.png", "image/png"));
  const std::string pdf =
      encodeJSON(entryFor(pdfOf("0 0 595 842"), "rider.pdf", "application/pdf"));
  const std::string wall = sha256(test::asBytes(pngOf(16'001, 1)));
  const std::string notes = sha256(test::asBytes("Stage plot\n"));
  EXPECT_EQ(
      outcome.out,
      "  VERDICT   ASSET      TYPE  SIZE          PIXELS  TOTAL  REMARK\n"
      "  accepted  logo.png   PNG   120 x 80 px    9,600  9,600\n"
      "  refused   wall.png   PNG   16001 x 1 px       -  9,600  too large: wider than 16,000 "
      "pixels\n"
      "  accepted  rider.pdf  PDF   595 x 842 pt       0  9,600\n"
      "  refused   notes.txt  -     -                  -  9,600  invalid: the content is none "
      "of PNG, JPEG, GIF, BMP, TIFF, WebP, HEIF, AVIF and PDF\n"
      "2 accepted, 2 refused, 9,600 of 100,000,000 pixels\n"
      "\"assetManifest\": [\n  " +
          png + ",\n  " + pdf + "\n]\nnot to embed:\n  " + wall + "  wall.png\n  " + notes +
          "  notes.txt\n");
}

TEST(Asset, IsCleanWhenEveryFileIsAccepted) {
  const Scratch scratch;
  scratch.write("logo.png", pngOf(120, 80));
  EXPECT_EQ(scratch.korrin("asset logo.png").status, 0);
}

TEST(Asset, PrintsNoManifestWhenNothingIsAccepted) {
  const Scratch scratch;
  scratch.write("notes.txt", "Stage plot\n");
  EXPECT_THAT(scratch.korrin("asset notes.txt").out, Not(HasSubstr("assetManifest")));
}

TEST(Asset, TakesInPixelsUpToTheLimitOfAPlot) {
  const Scratch scratch;
  scratch.write("a.png", pngOf(10'000, 4000));
  scratch.write("b.png", pngOf(4000, 10'000));
  scratch.write("c.png", pngOf(5000, 4001));
  scratch.write("d.png", pngOf(5000, 4000));
  scratch.write("e.png", pngOf(1, 1));
  const Outcome outcome = scratch.korrin("asset a.png b.png c.png d.png e.png");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out,
              HasSubstr("  refused   c.png  PNG   5000 x 4001 px   20,005,000   80,000,000  too "
                        "large: with it the plot would have 100,005,000 pixels, and 100,000,000 "
                        "are allowed\n"
                        "  accepted  d.png  PNG   5000 x 4000 px   20,000,000  100,000,000\n"
                        "  refused   e.png"));
  EXPECT_THAT(outcome.out,
              HasSubstr("\n3 accepted, 2 refused, 100,000,000 of 100,000,000 pixels\n"));
  EXPECT_EQ(manifestIn(outcome.out).size(), 3u);
}

TEST(Asset, CountsTheSameBytesOnce) {
  const Scratch scratch;
  scratch.write("logo.png", pngOf(120, 80));
  scratch.write("copy.png", pngOf(120, 80));
  const Outcome outcome = scratch.korrin("asset logo.png copy.png");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("9,600  9,600  the same bytes as logo.png, counted once\n"));
  EXPECT_THAT(outcome.out, HasSubstr("2 accepted, 9,600 of"));
  EXPECT_EQ(manifestIn(outcome.out).size(), 1u);
}

TEST(Asset, JudgesUnderAMediaTypeThatIsGiven) {
  const Scratch scratch;
  scratch.write("logo.png", pngOf(120, 80));
  scratch.write("rider.pdf", pdfOf("0 0 595 842"));
  const Outcome asImage = scratch.korrin("asset --media-type image/tiff logo.png rider.pdf");
  EXPECT_EQ(asImage.status, 1);
  EXPECT_THAT(asImage.out, HasSubstr("invalid: the content is PDF"));
  ASSERT_EQ(manifestIn(asImage.out).size(), 1u);
  EXPECT_EQ(manifestIn(asImage.out)[0].mediaType, "image/tiff");
  const Outcome asPdf = scratch.korrin("asset --media-type application/pdf logo.png rider.pdf");
  EXPECT_THAT(asPdf.out, HasSubstr("invalid: the content is PNG"));
  ASSERT_EQ(manifestIn(asPdf.out).size(), 1u);
  EXPECT_EQ(manifestIn(asPdf.out)[0].filename, "rider.pdf");
}

TEST(Asset, NamesAManifestEntryWithoutTheFolder) {
  const Scratch scratch;
  std::filesystem::create_directory(scratch.path("art"));
  scratch.write("art/logo.png", pngOf(120, 80));
  const Outcome outcome = scratch.korrin("asset art/logo.png");
  EXPECT_THAT(outcome.out, HasSubstr("accepted  art/logo.png"));
  EXPECT_EQ(manifestIn(outcome.out)[0].filename, "logo.png");
}

TEST(Asset, ReadsStandardInput) {
  const Scratch scratch;
  scratch.write("logo.png", pngOf(120, 80));
  const Outcome outcome = scratch.korrin("asset - <logo.png");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("accepted  standard input  PNG"));
}

TEST(Asset, SaysWhatItCannotReadAndGoesOn) {
  const Scratch scratch;
  scratch.write("logo.png", pngOf(120, 80));
  const std::string huge = scratch.write("huge.tif", "II*");
  std::filesystem::resize_file(huge, (std::size_t{256} << 20) + 1);
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"absent", "absent: cannot be read: No such file or directory"},
      {".", ".: cannot be read: it is a directory"},
      {"huge.tif", "huge.tif: cannot be read: it is larger than 256 MiB"},
      {"/dev/zero", "/dev/zero: cannot be read: it is a device"},
      {"- <&-", "standard input: cannot be read: Bad file descriptor"},
  };
  for (const auto& [argument, sentence] : rows) {
    const Outcome outcome = scratch.korrin("asset logo.png " + argument);
    EXPECT_EQ(outcome.status, 2) << argument;
    EXPECT_EQ(outcome.err, "korrin: " + sentence + "\n");
    EXPECT_THAT(outcome.out, HasSubstr("1 accepted, 1 unreadable, 9,600 of")) << argument;
  }
}

// Nobody may ever write to it; who means a pipe names standard input.
TEST(Asset, RefusesANamedPipeAtOnce) {
  const Scratch scratch;
  ASSERT_EQ(mkfifo(scratch.path("pipe").c_str(), 0600), 0);
  const Outcome outcome = scratch.korrin("asset pipe");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("pipe: cannot be read: it is a pipe"));
}

TEST(Asset, SendsNothingRawOfAHostileName) {
  const Scratch scratch;
  const std::string names[] = {"\x1b[2J.png", "\u009B31m.png", "\u202Egpj.png",
                               "a\nb.png",    "\xFF.png",      "tag\U000E0041.png"};
  std::uint32_t height = 80;  // different images, so that all stand in the manifest
  for (const std::string& name : names) scratch.write(name, pngOf(120, height++));
  const Outcome outcome = scratch.korrin("asset *.png absent\x1b");
  EXPECT_EQ(outcome.status, 2);
  for (const char byte : outcome.out + outcome.err)
    EXPECT_TRUE(byte == '\n' || static_cast<unsigned char>(byte) >= 0x20);
  for (const std::string_view raw : {"\u009B", "\u202E", "\U000E0041", "\xFF"})
    EXPECT_THAT(outcome.out, Not(HasSubstr(raw)));
  std::vector<std::string> filenames;
  for (const AssetManifestEntry& entry : manifestIn(outcome.out))
    filenames.push_back(entry.filename.str());
  EXPECT_THAT(filenames, testing::UnorderedElementsAre(names[0], names[1], names[2], names[3],
                                                       "\uFFFD.png", names[5]));
}

TEST(Asset, ReportsInJson) {
  const Scratch scratch;
  scratch.write("logo.png", pngOf(120, 80));
  scratch.write("wall.png", pngOf(16'001, 1));
  const Outcome outcome = scratch.korrin("asset --format json logo.png wall.png absent");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "");
  const json report = json::parse(outcome.out);
  EXPECT_EQ(report["reportVersion"], 1);
  EXPECT_EQ(report["exitCode"], 2);
  const json& assets = report["assets"];
  EXPECT_EQ(assets["totalPixels"], 9600);
  EXPECT_EQ(assets["maximumTotalPixels"], 100'000'000);
  ASSERT_EQ(assets["entries"].size(), 3u);
  const AssetManifestEntry logo = entryFor(pngOf(120, 80), "logo.png", "image/png");
  json expected = {{"name", "logo.png"}, {"status", "accepted"}, {"remark", nullptr},
                   {"file", "logo.png"}, {"type", "PNG"},        {"size", "120 x 80 px"},
                   {"pixels", 9600},     {"totalPixels", 9600}};
  expected["manifestEntry"] = json::parse(encodeJSON(logo));
  EXPECT_EQ(assets["entries"][0], expected);
  EXPECT_EQ(assets["entries"][1]["status"], "imageTooLarge");
  EXPECT_EQ(assets["entries"][1]["remark"], "wider than 16,000 pixels");
  EXPECT_EQ(assets["entries"][1]["pixels"], nullptr);
  EXPECT_EQ(assets["entries"][2]["status"], "unreadable");
  EXPECT_EQ(assets["entries"][2]["manifestEntry"], nullptr);
}

TEST(Asset, AcceptsTheExamplesAndAPlotThatEmbedsThem) {
  const Scratch scratch;
  const Outcome judged =
      scratch.korrin("asset $D/../assets/logo.png $D/../assets/power-distribution.pdf");
  EXPECT_EQ(judged.status, 0);
  EXPECT_EQ(manifestIn(judged.out),
            decodeJSON<KorrinProject>(exampleDocument("trio-with-artwork")).assetManifest);
  const Outcome checked =
      scratch.korrin("check --builtin-assets --assets $D/../assets $D/trio-with-artwork.json");
  EXPECT_EQ(checked.status, 0);
  EXPECT_THAT(checked.out, HasSubstr("no findings; assets: 2 accepted, 9,216 of 100,000,000"));
}

TEST(Asset, ThatIsMisusedIsSaid) {
  const Scratch scratch;
  EXPECT_EQ(scratch.korrin("asset").status, 64);
  EXPECT_EQ(scratch.korrin("asset - -").status, 64);
  EXPECT_EQ(scratch.korrin("asset --format xml x").status, 64);
  const Outcome help = scratch.korrin("asset --help");
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.out, HasSubstr("--media-type TYPE"));
}

/// A folder with a logo and a rider under other names, and a plot that embeds both.
class CheckAssets : public testing::Test {
 protected:
  CheckAssets() {
    std::filesystem::create_directory(scratch_.path("art"));
    scratch_.write("art/renamed", logo_);
    scratch_.write("art/rider.pdf", rider_);
    writePlot({logoEntry(), riderEntry()});
  }

  AssetManifestEntry logoEntry() const { return entryFor(logo_, "logo.png", "image/png"); }
  AssetManifestEntry riderEntry() const { return entryFor(rider_, "rider.pdf", "application/pdf"); }
  void writePlot(const List<AssetManifestEntry>& entries) const {
    scratch_.write("plot.json", encodeJSON(plotWith(entries)));
  }
  Outcome check(const std::string& options = "--builtin-assets --assets art") const {
    return scratch_.korrin("check " + options + " plot.json");
  }
  json assetsIn(const std::string& options = "--assets art") const {
    return json::parse(check("--format json " + options).out)["files"][0]["assets"];
  }
  std::vector<std::string> statuses() const {
    std::vector<std::string> result;
    const json assets = assetsIn();
    for (const json& entry : assets["entries"]) result.push_back(entry["status"]);
    return result;
  }

  const std::string logo_ = pngOf(120, 80);
  const std::string rider_ = pdfOf("0 0 595 842");
  const Scratch scratch_;
};

TEST_F(CheckAssets, FindsThemByDigestUnderAnyName) {
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, StartsWith("plot.json\n"));
  EXPECT_THAT(outcome.out, HasSubstr("  accepted  logo.png   PNG   120 x 80 px    9,600  9,600\n"
                                     "  accepted  rider.pdf  PDF   595 x 842 pt       0  9,600\n"));
  EXPECT_THAT(outcome.out, EndsWith("; assets: 2 accepted, 9,600 of 100,000,000 pixels\n"));
}

TEST_F(CheckAssets, AreLeftAloneUnlessAFolderIsNamed) {
  const Outcome outcome = check("--builtin-assets");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, Not(HasSubstr("accepted")));
  EXPECT_TRUE(assetsIn("").is_null());
}

TEST_F(CheckAssets, SwitchNoRuleOn) {
  EXPECT_THAT(check("--assets art").out, HasSubstr("missingAsset: not run"));
  EXPECT_THAT(check().out, Not(HasSubstr("missingAsset")));
}

TEST_F(CheckAssets, ReportThemInJson) {
  const json assets = assetsIn();
  EXPECT_EQ(assets["totalPixels"], 9600);
  EXPECT_EQ(assets["maximumTotalPixels"], 100'000'000);
  ASSERT_EQ(assets["entries"].size(), 2u);
  EXPECT_EQ(assets["entries"][0]["file"], "art/renamed");
  EXPECT_EQ(assets["entries"][0]["manifestEntry"], json::parse(encodeJSON(logoEntry())));
}

TEST_F(CheckAssets, MissWhatNoFileHas) {
  writePlot({entryFor("nowhere", "nowhere.png", "image/png"), riderEntry()});
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("  missing   nowhere.png  -"));
  EXPECT_THAT(outcome.out, HasSubstr("  no file has its digest\n"));
  EXPECT_THAT(outcome.out, EndsWith("assets: 1 accepted, 1 missing, 0 of 100,000,000 pixels\n"));
  const json report = json::parse(check("--format json --assets art").out);
  EXPECT_EQ(report["exitCode"], 1);
  EXPECT_EQ(report["files"][0]["status"], "findings");
}

TEST_F(CheckAssets, PointAtANamesakeWithOtherContent) {
  writePlot({entryFor("older", "rider.pdf", "application/pdf")});
  EXPECT_THAT(check().out, HasSubstr("no file has its digest; art/rider.pdf has other content\n"));
}

TEST_F(CheckAssets, MissWhatIsInAFolderInside) {
  std::filesystem::create_directory(scratch_.path("art/old"));
  std::filesystem::rename(scratch_.path("art/renamed"), scratch_.path("art/old/logo.png"));
  EXPECT_THAT(statuses(), ElementsAre("missing", "accepted"));
  EXPECT_EQ(check("--assets art --assets art/old").status, 0);
}

TEST_F(CheckAssets, CompareTheByteCount) {
  AssetManifestEntry longer = logoEntry();
  ++longer.byteCount;
  writePlot({longer, riderEntry()});
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out,
              HasSubstr("wrong length: the manifest says " + std::to_string(longer.byteCount) +
                        " bytes, and it has " + std::to_string(logo_.size()) + "\n"));
  EXPECT_THAT(statuses(), ElementsAre("wrongByteCount", "accepted"));
  longer.byteCount = -1;
  writePlot({longer});
  EXPECT_THAT(statuses(), ElementsAre("wrongByteCount"));
}

TEST_F(CheckAssets, JudgeUnderTheMediaTypeOfTheManifest) {
  AssetManifestEntry image = riderEntry();
  AssetManifestEntry unnamed = riderEntry();
  AssetManifestEntry pdf = logoEntry();
  image.mediaType = "image/png";
  unnamed.mediaType = "";
  pdf.mediaType = "application/pdf";
  writePlot({image, unnamed, pdf});
  EXPECT_EQ(check().status, 1);
  EXPECT_THAT(statuses(), ElementsAre("invalidImage", "invalidImage", "invalidImage"));
}

TEST_F(CheckAssets, RefuseWhatIsTooLargeAloneOrTogether) {
  List<AssetManifestEntry> entries;
  for (const std::uint32_t width : {16'001u, 10'000u, 9999u, 9998u}) {
    const std::string image = pngOf(width, 4000);
    scratch_.write("art/" + std::to_string(width), image);
    entries.push_back(entryFor(image, std::to_string(width), "image/png"));
  }
  entries.push_back(logoEntry());
  writePlot(entries);
  EXPECT_EQ(check().status, 1);
  EXPECT_THAT(statuses(),
              ElementsAre("imageTooLarge", "accepted", "accepted", "imageTooLarge", "accepted"));
  EXPECT_EQ(assetsIn()["totalPixels"], 40'000'000 + 39'996'000 + 9600);
}

TEST_F(CheckAssets, CountAnEntryThatStandsTwiceOnce) {
  AssetManifestEntry again = logoEntry();
  std::string digest = again.sha256.str();
  for (char& digit : digest)
    if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
  again.sha256 = digest;
  writePlot({logoEntry(), again});
  EXPECT_EQ(assetsIn()["totalPixels"], 9600);
}

TEST_F(CheckAssets, TakeNoOtherTextForADigest) {
  AssetManifestEntry entry = logoEntry();
  entry.sha256 = "9f86d081";
  AssetManifestEntry empty = logoEntry();
  empty.sha256 = "";
  writePlot({entry, empty});
  EXPECT_EQ(check().status, 1);
  EXPECT_THAT(statuses(), ElementsAre("missing", "missing"));
  EXPECT_EQ(assetsIn()["entries"][0]["remark"], "what the manifest gives as its digest is none");
}

TEST_F(CheckAssets, PassOverWhatIsNoFile) {
  ASSERT_EQ(mkfifo(scratch_.path("art/pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("nowhere", scratch_.path("art/broken"));
  std::filesystem::create_symlink("/dev/zero", scratch_.path("art/endless"));
  std::filesystem::rename(scratch_.path("art/renamed"), scratch_.path("elsewhere"));
  std::filesystem::create_symlink("../elsewhere", scratch_.path("art/link"));
  EXPECT_EQ(check().status, 0);
}

TEST_F(CheckAssets, CountFilesThatCannotBeRead) {
  std::filesystem::resize_file(scratch_.path("art/renamed"), (std::size_t{256} << 20) + 1);
  EXPECT_THAT(check().out, HasSubstr("no file has its digest; 1 file cannot be read\n"));
}

TEST_F(CheckAssets, NeedAFolderThatCanBeRead) {
  for (const auto& [folder, reason] : {std::pair{"absent", "No such file or directory"},
                                       std::pair{"plot.json", "Not a directory"}}) {
    const Outcome outcome = check("--assets " + std::string(folder));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "korrin: " + std::string(folder) + ": cannot be read: " + reason + "\n");
  }
}

TEST_F(CheckAssets, SayThatAPlotHasNone) {
  writePlot({});
  EXPECT_THAT(check().out, EndsWith("; no assets\n"));
}

TEST_F(CheckAssets, AcceptWhatTheAssetCommandOffers) {
  const Outcome judged = scratch_.korrin("asset art/renamed art/rider.pdf");
  writePlot(manifestIn(judged.out));
  EXPECT_EQ(check().status, 0);
}

TEST_F(CheckAssets, SendNothingRawOfAHostileManifest) {
  AssetManifestEntry entry = logoEntry();
  entry.filename = "\x1b]0;owned\x07\u009B2J";
  AssetManifestEntry nameless = riderEntry();
  nameless.filename = "";
  nameless.sha256 = "\x1b[2J";
  writePlot({entry, nameless});
  const Outcome outcome = check();
  for (const char byte : outcome.out)
    EXPECT_TRUE(byte == '\n' || static_cast<unsigned char>(byte) >= 0x20);
  EXPECT_THAT(outcome.out, HasSubstr("accepted  \\u{1B}]0;owned\\u{7}\\u{9B}2J  PNG"));
  EXPECT_THAT(outcome.out, HasSubstr("missing   \\u{1B}[2J "));
}

}  // namespace
}  // namespace korrin::host
