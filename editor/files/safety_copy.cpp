#include "editor/files/safety_copy.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <system_error>
#include <utility>

#include "editor/files/paths.h"

namespace korrin::editor {
namespace {

// Plots without a file at the same time; more than these have no copy.
constexpr int maximumWithoutFile = 32;

// Milliseconds: a little after a copy is due, and between two words about one that failed.
constexpr int firstLook = 3'000;
constexpr int nextLook = 20'000;

}  // namespace

SafetyCopy::SafetyCopy(OpenPlot& plot, QString folder, QObject* parent)
    : QObject(parent), plot_(plot), folder_(std::move(folder)) {
  QDir().mkpath(folder_);
  // The names of plots, if not their contents, would tell others what the user works on.
  QFile::setPermissions(folder_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  whenToCheck_.setSingleShot(true);
  connect(&whenToCheck_, &QTimer::timeout, this, &SafetyCopy::check);
  connect(&plot_, &OpenPlot::historyChanged, this, &SafetyCopy::follow);
}

SafetyCopy::~SafetyCopy() = default;

std::filesystem::path SafetyCopy::placeWithoutFile(int number) const {
  return toPath(QStringLiteral("%1/unsaved-%2.json").arg(folder_).arg(number));
}

std::unique_ptr<QLockFile> SafetyCopy::lockOf(const std::filesystem::path& document) const {
  const QFileInfo file(pathText(document));
  const QString canonical = file.canonicalFilePath();
  const QByteArray name =
      QFile::encodeName(canonical.isEmpty() ? file.absoluteFilePath() : canonical);
  const QByteArray digest = QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex();
  auto lock = std::make_unique<QLockFile>(folder_ + '/' + QString::fromLatin1(digest) + ".lock");
  // A plot stays open for days; a lock is stale when its process is gone.
  lock->setStaleLockTime(0);
  return lock;
}

bool SafetyCopy::isOpenElsewhere(const std::filesystem::path& document) const {
  return document != document_ && !lockOf(document)->tryLock(0);
}

std::vector<Recovery> SafetyCopy::leftBehind() const {
  std::vector<Recovery> found;
  for (int number = 1; number <= maximumWithoutFile; ++number) {
    const std::filesystem::path place = placeWithoutFile(number);
    if (place == document_) continue;
    const auto lock = lockOf(place);
    if (!lock->tryLock(0)) continue;
    if (auto recovery = recoveryOf(place)) found.push_back(std::move(*recovery));
  }
  return found;
}

bool SafetyCopy::isAlone() const {
  for (int number = 1; number <= maximumWithoutFile; ++number) {
    const std::filesystem::path place = placeWithoutFile(number);
    if (place == document_) continue;
    if (QFileInfo::exists(pathText(recoveryFileFor(place))) || !lockOf(place)->tryLock(0))
      return false;
  }
  return true;
}

void SafetyCopy::discard(const Recovery& recovery) {
  std::error_code ignored;  // It is offered once more then, which does no harm.
  std::filesystem::remove(recovery.file, ignored);
}

bool SafetyCopy::isAtItsPlace() const {
  const DocumentFile* file = plot_.file();
  return lock_ && (file != nullptr ? document_ == file->path() : hasNoFile_);
}

void SafetyCopy::follow() {
  if (!isAtItsPlace()) move();
  if (!autosave_) return;
  if (plot_.history().isSaved()) {
    forget();
    return;
  }
  autosave_->note(plot_.project());
  isNoted_ = true;
  if (!whenToCheck_.isActive()) whenToCheck_.start(firstLook);
}

bool SafetyCopy::check() {
  const std::optional<std::string> failure = autosave_ ? autosave_->failure() : std::nullopt;
  if (isNoted_) whenToCheck_.start(failure ? nextLook : firstLook);
  if (failure) Q_EMIT failed(QString::fromStdString(*failure));
  return autosave_ && !failure;
}

void SafetyCopy::move() {
  isNoted_ = isNoted_ || autosave_ != nullptr;
  forget();
  autosave_.reset();
  lock_.reset();
  document_.clear();
  const DocumentFile* file = plot_.file();
  hasNoFile_ = file == nullptr;
  if (file != nullptr) {
    document_ = file->path();
    lock_ = lockOf(document_);
    if (!lock_->tryLock(0)) return;
  } else {
    for (int number = 1; number <= maximumWithoutFile && !lock_; ++number) {
      const std::filesystem::path place = placeWithoutFile(number);
      auto lock = lockOf(place);
      // A place that holds another plot's copy stays that plot's.
      if (!lock->tryLock(0) || QFileInfo::exists(pathText(recoveryFileFor(place)))) continue;
      document_ = place;
      lock_ = std::move(lock);
    }
    if (!lock_) return;
  }
  try {
    autosave_ = std::make_unique<Autosave>(recoveryFileFor(document_));
  } catch (const std::system_error&) {
    // Without a thread to be had there is no copy; the plot can be edited and saved all the same.
  }
}

void SafetyCopy::forget() {
  if (autosave_ && isNoted_) autosave_->settle();
  isNoted_ = false;
  whenToCheck_.stop();
}

bool SafetyCopy::flush() {
  if (autosave_) autosave_->flush();
  return check();
}

}  // namespace korrin::editor
