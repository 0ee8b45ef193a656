// Images in a plot: dropped, judged, kept beside it, shown and printed.

#include "editor/plot/plot_artwork.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QDropEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include "korrin/model/document_coding.h"
#include "korrin/validation/raster_asset_safety.h"

#include "editor/dialogs/image_refusals.h"
#include "editor/dialogs/insert_images.h"
#include "editor/files/paths.h"
#include "editor/files/plot_files.h"
#include "editor/main_window.h"
#include "editor/menus/clipboard.h"
#include "editor/output/sheets.h"
#include "editor/panels/findings_panel.h"
#include "editor/plot/qt_texts.h"
#include "tests/editor/support/answers.h"
#include "tests/editor/support/settings.h"

namespace korrin::editor {
namespace {

using test::Answer;

constexpr QRgb red = 0xffd02020;
constexpr int patience = 60'000;  // milliseconds, on a machine that has other work

KorrinProject timeless(KorrinProject project) {
  project.metadata.modifiedAt = {};
  return project;
}

QByteArray pngOf(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return bytes;
}

QByteArray png(int width, int height, QRgb colour = red) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(colour);
  return pngOf(image);
}

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

std::string digestOf(const QByteArray& bytes) { return editor::digestOf(bytes.toStdString()); }

bool isReddish(QRgb pixel) { return qRed(pixel) > 160 && qGreen(pixel) < 90 && qBlue(pixel) < 90; }

bool isGreenish(QRgb pixel) { return qGreen(pixel) > 160 && qRed(pixel) < 90 && qBlue(pixel) < 90; }
bool isPurple(QRgb pixel) { return qRed(pixel) > 160 && qBlue(pixel) > 160 && qGreen(pixel) < 90; }
bool isBluish(QRgb pixel) { return qBlue(pixel) > 160 && qRed(pixel) < 90 && qGreen(pixel) < 90; }

// A photo that notes how its camera was held. As it is stored, the upper left quarter is red and
// the upper right one blue, above green.
QByteArray photo(int orientation) {
  QImage image(160, 80, QImage::Format_RGB32);
  image.fill(0xff20d020);
  QPainter painter(&image);
  painter.fillRect(0, 0, 80, 40, QColor(0xffd020d0));
  painter.fillRect(80, 0, 80, 40, QColor(0xff2020d0));
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "JPEG", 95);
  QByteArray note = QByteArray::fromHex(
      "ffe10022457869660000"
      "4d4d002a00000008"
      "00010112000300000001000100000000"
      "0000");
  note[29] = char(orientation);
  return bytes.insert(2, note);
}

// Where the purple and the blue quarter stand, seen from the middle of the photo.
struct Quarters {
  QPoint purpleOne;
  QPoint blueOne;
  bool operator==(const Quarters&) const = default;
};

Quarters quartersOf(const QImage& image) {
  struct Middle {
    double x = 0, y = 0, count = 0;
    void add(int atX, int atY) { x += atX, y += atY, ++count; }
  };
  Middle ofPurple;
  Middle ofBlue;
  Middle ofAll;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      if (isPurple(pixel)) ofPurple.add(x, y);
      if (isBluish(pixel)) ofBlue.add(x, y);
      if (isPurple(pixel) || isBluish(pixel) || isGreenish(pixel)) ofAll.add(x, y);
    }
  const auto side = [&](const Middle& one) {
    return QPoint(one.x / one.count < ofAll.x / ofAll.count ? -1 : 1,
                  one.y / one.count < ofAll.y / ofAll.count ? -1 : 1);
  };
  return {side(ofPurple), side(ofBlue)};
}

class PlotArtworkTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { test::useOwnSettings("plot-artwork"); }

  void init() {
    folder = std::make_unique<QTemporaryDir>();
    window = std::make_unique<MainWindow>();
    files = window->findChild<PlotFiles*>();
    plot().artwork().setSharedFolder(toPath(at("shared")));
    plot().begin(KorrinProject::newDocument());
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
  }

  void cleanup() { window.reset(); }

  void takesAnImageThatIsDropped() {
    QVERIFY(files->saveTo(at("tonight.json")));
    const KorrinProject before = plot().project();
    const QByteArray bytes = png(64, 32);
    const QPointF place(1'500, -700);
    drop({write("Logo.of the band.png", bytes)}, place);
    QTRY_COMPARE_WITH_TIMEOUT(plot().project().items.size(), std::size_t{1}, patience);

    const PlotItem item = plot().project().items[0];
    const Text digest = digestOf(bytes);
    QCOMPARE(item.assetID, digest);
    QCOMPARE(item.label, Text("Logo.of the band"));
    // A pixel of the window is some millimetres.
    QVERIFY(QLineF(QPointF(item.position.x, item.position.y), place).length() < 40);
    QCOMPARE(item.size.width, 2 * item.size.height);
    QCOMPARE(plot().selection(), IDSet{item.id});
    QCOMPARE(plot().project().assetManifest.size(), std::size_t{1});
    const AssetManifestEntry entry = plot().project().assetManifest[0];
    QCOMPARE(entry.sha256, digest);
    QCOMPARE(entry.filename, Text("Logo.of the band.png"));
    QCOMPARE(entry.mediaType, Text("image/png"));
    QCOMPARE(entry.byteCount, std::int64_t(bytes.size()));
    QCOMPARE(contentOf(at("tonight.assets/") + toQString(digest) + ".png"), bytes);

    QCOMPARE(plot().history().undoCount(), std::size_t{1});
    plot().undo();
    QVERIFY(timeless(plot().project()) == timeless(before));
  }

  void showsAndPrintsIt() {
    insert({write("a.png", png(80, 80))});
    const PlotItem item = plot().project().items[0];
    QVERIFY(haveArrived());
    QVERIFY(!plot().artwork().pictureOf(item.assetID).isNull());
    plot().select({});
    QTest::qWait(50);
    const QImage seen = window->canvas().viewport()->grab().toImage();
    QVERIFY(isReddish(
        seen.pixel(window->canvas().mapFromScene(QPointF(item.position.x, item.position.y)))));

    const PrintedWith with = {.artwork = plot().artwork().bytesForPainting()};
    const QImage printed = pictureOfStage(plot().project(), 800, with);
    int count = 0;
    for (int y = 0; y < printed.height(); ++y)
      for (int x = 0; x < printed.width(); ++x) count += isReddish(printed.pixel(x, y));
    // The image is a metre wide, on a stage of 12 m; the picture has a rim.
    QVERIFY2(count > 45 * 45 && count < 70 * 70, qPrintable(QString::number(count)));
    QVERIFY(pdfOf(plot().project(), with).contains("/Subtype /Image"));
    const std::string sheet = sheetsOf(plot().project(), with).front();
    QVERIFY(sheet.find("data:image/png;base64,") != std::string::npos);
    QVERIFY(sheetsOf(plot().project()).front().find("base64") == std::string::npos);
  }

  void turnsAPhotoAsItsCameraNotedOnScreenAndOnPaper() {
    const QPoint upperLeft(-1, -1);
    const QPoint upperRight(1, -1);
    const QPoint lowerLeft(-1, 1);
    const QPoint lowerRight(1, 1);
    const Quarters expected[] = {{upperLeft, upperRight},  {upperRight, upperLeft},
                                 {lowerRight, lowerLeft},  {lowerLeft, lowerRight},
                                 {upperLeft, lowerLeft},   {upperRight, lowerRight},
                                 {lowerRight, upperRight}, {lowerLeft, upperLeft}};
    for (int orientation = 1; orientation <= 8; ++orientation) {
      const QByteArray number = QByteArray::number(orientation);
      plot().begin(KorrinProject::newDocument());
      insert({write("photo.jpg", photo(orientation))});
      const PlotItem item = plot().project().items[0];
      const bool isHigh = orientation >= 5;
      QCOMPARE(item.size.width, isHigh ? item.size.height / 2 : item.size.height * 2);
      QVERIFY(haveArrived());
      plot().select({});
      QTest::qWait(50);
      const Canvas& canvas = window->canvas();
      const QRect place(canvas.mapFromScene(QPointF(item.position.x - item.size.width / 2,
                                                    item.position.y - item.size.height / 2)),
                        canvas.mapFromScene(QPointF(item.position.x + item.size.width / 2,
                                                    item.position.y + item.size.height / 2)));
      const QImage seen = canvas.viewport()->grab(place).toImage();
      const Quarters& wanted = expected[orientation - 1];
      QVERIFY2(quartersOf(seen) == wanted, number);
      const PrintedWith with = {.artwork = plot().artwork().bytesForPainting()};
      QVERIFY2(quartersOf(pictureOfStage(plot().project(), 800, with)) == wanted, number);
    }
  }

  void insertsSeveralAsOneEdit() {
    insert({write("a.png", png(40, 40)), write("b.png", png(40, 40, 0xff0000ff)),
            write("c.png", png(40, 40))});
    QCOMPARE(plot().project().items.size(), std::size_t{3});
    // The same bytes are one image.
    QCOMPARE(plot().project().assetManifest.size(), std::size_t{2});
    QVERIFY(plot().project().items[0].position.x + plot().project().items[0].size.width <
            plot().project().items[2].position.x);
    QCOMPARE(plot().history().undoCount(), std::size_t{1});
  }

  void refusesWhatIsNoSafeImage() {
    const QString list = write("list.txt", "drums, bass, voice");
    const QString good = write("good.png", png(8, 8));
    QString text;
    Answer answer("imagesRefused", [&text](QWidget& dialog) {
      text = static_cast<QMessageBox&>(dialog).text();
      static_cast<QMessageBox&>(dialog).accept();
    });
    insert({list, good, at("gone.png")});
    QVERIFY(answer.wasAsked());
    QVERIFY2(text.contains("“list.txt”") && text.contains("Export it as PNG"), qPrintable(text));
    QVERIFY2(text.contains("“gone.png”"), qPrintable(text));
    QCOMPARE(plot().project().items.size(), std::size_t{1});
    for (const AssetRefusal refusal : allCases<AssetRefusal>())
      QVERIFY(sentencesFor(refusal).size() > 30);
  }

  void refusesWhatIsTooMuchTogether() {
    QStringList paths;
    for (int number = 0; number < 3; ++number) {
      QImage image(7'000, 7'000, QImage::Format_Mono);
      image.fill(0);
      image.setPixel(number, 0, 1);
      paths += write(QString("%1.png").arg(number), pngOf(image));
    }
    Answer answer("imagesRefused", [](QWidget& dialog) {
      QVERIFY(static_cast<QMessageBox&>(dialog).text().contains(noRoomSentences().left(30)));
      static_cast<QMessageBox&>(dialog).accept();
    });
    insert(paths);
    QVERIFY(answer.wasAsked());
    QCOMPARE(plot().project().items.size(), std::size_t{2});
    QVERIFY(haveArrived());
    // There is room again once one of them is gone.
    plot().perform("Delete", DocumentCommand::deleteItems({plot().project().items[0].id}));
    insert({paths[2]});
    QCOMPARE(plot().project().items.size(), std::size_t{2});
    QVERIFY(haveArrived());
    QVERIFY(!plot().artwork().pictureOf(plot().project().items[1].assetID).isNull());
  }

  void replacesNoFileAndLetsNoNameSteer() {
    QVERIFY(files->saveTo(at("tonight.json")));
    const QByteArray bytes = png(16, 16);
    const QString name = QString::fromStdString(digestOf(bytes));
    QVERIFY(QDir(folder->path()).mkdir("tonight.assets"));
    write("tonight.assets/" + name + ".png", "mine");
    insert({write("..\\..\\evil\n%2f.png", bytes)});
    QCOMPARE(contentOf(at("tonight.assets/") + name + ".png"), QByteArray("mine"));
    QCOMPARE(contentOf(at("tonight.assets/") + name + "-2.png"), bytes);
    QCOMPARE(QDir(at("tonight.assets")).entryList(QDir::Files).size(), 2);
    QVERIFY(!toQString(plot().project().assetManifest[0].filename).contains('\n'));
    QVERIFY(haveArrived());
    QVERIFY(!plot().artwork().pictureOf(plot().project().items[0].assetID).isNull());
  }

  void bringsImagesAlongWhereverThePlotIsSaved() {
    const QByteArray bytes = png(16, 16);
    const QString name = QString::fromStdString(digestOf(bytes)) + ".png";
    insert({write("a.png", bytes)});
    QCOMPARE(contentOf(at("shared/") + name), bytes);
    QVERIFY(files->saveTo(at("first.json")));
    QCOMPARE(contentOf(at("first.assets/") + name), bytes);
    QVERIFY(QDir(folder->path()).mkdir("other"));
    QVERIFY(files->saveTo(at("other/second.korrin.json")));
    QCOMPARE(contentOf(at("other/second.korrin.assets/") + name), bytes);

    // An image that an undo had taken away is brought when it is back.
    plot().undo();
    QVERIFY(files->saveTo(at("third.json")));
    QVERIFY(!QFile::exists(at("third.assets")));
    plot().redo();
    QVERIFY(files->save());
    QCOMPARE(contentOf(at("third.assets/") + name), bytes);
  }

  void opensAPlotWhoseImagesHaveNamesOfTheirOwn() {
    const QByteArray bytes = png(24, 24);
    write("logo.png", bytes);
    KorrinProject project = KorrinProject::newDocument();
    project.assetManifest.push_back({.sha256 = digestOf(bytes),
                                     .filename = "../../etc/logo.png",
                                     .mediaType = "image/png",
                                     .byteCount = bytes.size()});
    plot().begin(project, DocumentFile(toPath(at("tonight.json"))));
    plot().artwork().pictureOf(digestOf(bytes));
    QVERIFY(haveArrived());
    QCOMPARE(plot().artwork().pictureOf(digestOf(bytes)).size(), QSize(24, 24));
  }

  void missesWhatIsNotThereOrNotWhatItClaims() {
    const QByteArray bytes = png(24, 24);
    insert({write("a.png", bytes)});
    QVERIFY(haveArrived());
    const Text digest = digestOf(bytes);
    QVERIFY(!plot().artwork().isMissing(digest));
    // Under a type that it is not, it is no safe image.
    KorrinProject project = plot().project();
    project.assetManifest.edit(0).mediaType = "application/pdf";
    plot().begin(project);
    QVERIFY(haveArrived());
    QVERIFY(plot().artwork().isMissing(digest));
    QVERIFY(!plot().artwork().bytesForFiles()(digest));
  }

  void saysWhichImagesWillNotBePrintedUntilTheirFilesAreBack() {
    const QByteArray bytes = png(24, 24);
    const QString logo = write("logo.png", bytes);
    insert({logo});
    QVERIFY(files->saveTo(at("tonight.json")));
    QVERIFY(haveArrived());
    QVERIFY(lost().isEmpty());
    QVERIFY(QDir(at("shared")).removeRecursively());
    QVERIFY(QDir(at("tonight.assets")).removeRecursively());
    QVERIFY(QFile::remove(logo));
    QTRY_COMPARE_WITH_TIMEOUT(lost().size(), qsizetype{1}, patience);
    QVERIFY2(lost().front().contains("“logo.png”") && lost().front().contains("insert"),
             qPrintable(lost().front()));
    QVERIFY(plot().artwork().pictureOf(plot().project().items[0].assetID).isNull());
    write("found again.png", bytes);
    QTRY_VERIFY_WITH_TIMEOUT(lost().isEmpty(), patience);
    QVERIFY(!plot().artwork().pictureOf(plot().project().items[0].assetID).isNull());
  }

  void savesWithoutReadingImagesThatAreInPlace() {
    insert({write("a.png", png(16, 16)), write("b.png", png(17, 17))});
    QVERIFY(files->saveTo(at("tonight.json")));
    const KorrinProject project = plot().project();
    plot().begin(project, DocumentFile(toPath(at("tonight.json"))));
    QVERIFY(haveArrived());
    // A file that was damaged without a trace in its folder shows that nobody reads it: whoever did
    // would put a whole one beside it.
    const QDir images(at("tonight.assets"));
    write("tonight.assets/" + images.entryList(QDir::Files).first(), "damaged");
    QVERIFY(plot().artwork().bringTo(toPath(at("tonight.json"))).empty());
    QCOMPARE(images.entryList(QDir::Files).size(), 2);
    // What has gone is brought back as far as it can be.
    QVERIFY(QDir(at("tonight.assets")).removeRecursively());
    QTRY_VERIFY_WITH_TIMEOUT((plot().artwork().bringTo(toPath(at("tonight.json"))),
                              QDir(at("tonight.assets")).entryList(QDir::Files).size() == 2),
                             patience);
  }

  void keepsTheWindowAliveWhileImagesAreCopied() {
    insert({write("a.png", png(16, 16))});
    bool isAlive = false;
    QMetaObject::invokeMethod(
        window.get(), [&isAlive] { isAlive = true; }, Qt::QueuedConnection);
    QVERIFY(plot().artwork().bringTo(toPath(at("far.json"))).empty());
    QVERIFY(isAlive);
    QCOMPARE(QDir(at("far.assets")).entryList(QDir::Files).size(), 1);
  }

  void decodesNothingButWhatWasJudged() {
    const auto refused = CheckedImage::check("GIF87a and nothing else");
    QVERIFY(std::holds_alternative<AssetRefusal>(refused));
    const QByteArray whole = png(500, 500);
    auto cut = CheckedImage::check(whole.left(60).toStdString());
    QVERIFY(std::holds_alternative<CheckedImage>(cut));  // its header is in order
    QVERIFY(std::get<CheckedImage>(cut).decoded(100).isNull());
    auto image = CheckedImage::check(whole.toStdString());
    QCOMPARE(std::get<CheckedImage>(image).decoded(100).size(), QSize(100, 100));
    QCOMPARE(std::get<CheckedImage>(image).ending(), std::string_view("png"));
  }

  void sweepsAwayWhatNobodyNeeds() {
    QVERIFY(QDir().mkpath(at("unsaved/assets")));
    const auto age = [](const QString& path, int days) {
      QFile file(path);
      QVERIFY(file.open(QFile::ReadWrite));
      QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(-days),
                               QFileDevice::FileModificationTime));
    };
    write("unsaved/assets/fresh.png", "x");
    write("unsaved/assets/old.png", "x");
    age(at("unsaved/assets/old.png"), 3);
    OpenPlot other;
    QWidget widget;
    PlotFiles otherFiles(other, &widget, at("unsaved"));
    other.begin(KorrinProject::newDocument());
    otherFiles.sweep();
    QVERIFY(QFile::exists(at("unsaved/assets/fresh.png")));
    QVERIFY(!QFile::exists(at("unsaved/assets/old.png")));

    // Another editor with a plot without a file may need them.
    write("unsaved/assets/old.png", "x");
    age(at("unsaved/assets/old.png"), 3);
    OpenPlot third;
    PlotFiles thirdFiles(third, &widget, at("unsaved"));
    third.begin(KorrinProject::newDocument());
    otherFiles.sweep();
    QVERIFY(QFile::exists(at("unsaved/assets/old.png")));
  }

  void carriesImagesToAnotherWindow() {
    insert({write("a.png", png(16, 16))});
    QVERIFY(copySelection(plot()));
    OpenPlot other;
    other.artwork().setSharedFolder(plot().artwork().sharedFolder());
    other.begin(KorrinProject::newDocument(), DocumentFile(toPath(at("other.json"))));
    pasteInto(other, {});
    QCOMPARE(other.project().items.size(), std::size_t{1});
    QCOMPARE(QDir(at("other.assets")).entryList(QDir::Files).size(), 1);
  }

 private:
  OpenPlot& plot() { return window->plot(); }
  QString at(const QString& name) const { return folder->filePath(name); }
  QString write(const QString& name, const QByteArray& content) {
    QFile file(at(name));
    if (file.open(QFile::WriteOnly)) file.write(content);
    return at(name);
  }
  bool haveArrived() {
    return QTest::qWaitFor([this] { return plot().artwork().isIdle(); }, patience);
  }
  // What the panel says of images that are gone.
  QStringList lost() {
    QStringList sentences;
    for (const Finding& finding : window->findChild<FindingsPanel*>()->findings())
      if (const auto* issue = std::get_if<PreflightIssue>(&finding.source))
        if (issue->rule == PreflightRule::missingAsset) sentences += toQString(finding.detail);
    return sentences;
  }
  void insert(const QStringList& paths) { insertImages(plot(), paths, {0, 0}, window.get()); }
  void drop(const QStringList& paths, const QPointF& place) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths) urls += QUrl::fromLocalFile(path);
    data.setUrls(urls);
    QWidget* viewport = window->canvas().viewport();
    const QPoint at = window->canvas().mapFromScene(place);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &event);
  }

  std::unique_ptr<QTemporaryDir> folder;
  std::unique_ptr<MainWindow> window;
  PlotFiles* files = nullptr;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::PlotArtworkTest)
#include "plot_artwork_test.moc"
