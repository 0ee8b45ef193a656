// Autosave: a worker writes the newest snapshot while edits go on.

#include <condition_variable>
#include <iostream>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <korrin/korrin.h>

using namespace korrin;

namespace {

// Writes snapshots one after the other on a thread of its own. One that is not yet begun when the
// next one arrives is passed over: nobody needs it any more.
class Autosave {
 public:
  Autosave() : worker_([this] { run(); }) {}
  ~Autosave() { finish(); }
  Autosave(const Autosave&) = delete;
  Autosave& operator=(const Autosave&) = delete;

  // Returns at once. The copy shares its storage with the plot and costs no allocation.
  void save(KorrinProject snapshot) {
    {
      const std::lock_guard lock(mutex_);
      waiting_ = std::move(snapshot);
    }
    arrived_.notify_one();
  }

  // Waits until the last snapshot is written, and returns all that were.
  const std::vector<std::string>& finish() {
    {
      const std::lock_guard lock(mutex_);
      isFinishing_ = true;
    }
    arrived_.notify_one();
    if (worker_.joinable()) worker_.join();
    return written_;
  }

 private:
  std::optional<KorrinProject> next() {
    std::unique_lock lock(mutex_);
    arrived_.wait(lock, [this] { return waiting_ || isFinishing_; });
    return std::exchange(waiting_, std::nullopt);
  }

  void run() {
    while (const std::optional<KorrinProject> snapshot = next())
      written_.push_back(encodeJSON(*snapshot));  // to disk, in a real host
  }

  std::mutex mutex_;
  std::condition_variable arrived_;
  std::optional<KorrinProject> waiting_;
  bool isFinishing_ = false;
  std::vector<std::string> written_;  // the worker's until it has been joined
  std::thread worker_;                // last: it uses all the others
};

// The revision and the label of every item say the same number: a torn snapshot would not.
DocumentCommand revise(const KorrinProject& project, int revision) {
  ProjectMetadata metadata = project.metadata;
  metadata.revision = std::to_string(revision);
  List<PlotItem> items = project.items;
  for (std::size_t i = 0; i < items.size(); ++i) items.edit(i).label = metadata.revision;
  return DocumentCommand::compound(
      {DocumentCommand::replaceMetadata(metadata), DocumentCommand::replaceItems(items)});
}

void require(bool holds, const char* expectation) {
  if (!holds) throw std::logic_error(std::string("not so: ") + expectation);
}

}  // namespace

int main() {
  constexpr int edits = 500;
  KorrinProject project = KorrinProject::example();
  Autosave autosave;
  for (int revision = 1; revision <= edits; ++revision) {
    revise(project, revision).apply(project);
    autosave.save(project);
  }

  const std::vector<std::string>& written = autosave.finish();
  require(!written.empty() && written.back() == encodeJSON(project), "the last state is written");
  int last = 0;
  for (const std::string& bytes : written) {
    const KorrinProject saved = decodeJSON<KorrinProject>(bytes);
    for (const PlotItem& item : saved.items)
      require(item.label == saved.metadata.revision, "a snapshot is of one moment");
    const int revision = std::stoi(saved.metadata.revision.str());
    require(revision > last, "snapshots are written in order");
    last = revision;
  }
  std::cout << edits << " edits, every snapshot that was written is whole\n";
}
