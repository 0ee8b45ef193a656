// Deletion where a second thread sleeps, as in a host with several: owners of shared storage are
// counted by atomic instructions then. The C library does not forget that there was a thread, so
// this needs a program of its own.

#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "korrin/commands/document_command.h"

#include "benchmarks/support/contest.h"
#include "benchmarks/support/plain_commands.h"
#include "benchmarks/support/plot_generator.h"

namespace korrin::benchmarks {
namespace {

void addDeletion(std::size_t items) {
  const KorrinProject project = generatedPlot(items);
  const IDSet ids = {project.items[items / 2].id};
  compete("delete/beside-thread/korrin", items,
          [project, command = DocumentCommand::deleteItems(ids)] {
            KorrinProject edited = project;
            return command.apply(edited);
          });
  compete("delete/beside-thread/vectors", items,
          [vectors = MirrorOf<KorrinProject>::of(project), ids]() mutable {
            VectorResult result = deleteItems(vectors, ids);
            vectors = std::move(result.inverse);
            return std::move(result.changedItemIDs);
          });
}

}  // namespace
}  // namespace korrin::benchmarks

int main(int argc, char** argv) {
  std::promise<void> end;
  std::thread other([&end] { end.get_future().wait(); });
  for (const std::size_t items : korrin::benchmarks::itemCounts)
    korrin::benchmarks::addDeletion(items);
  const int status = korrin::benchmarks::runContest(argc, argv);
  end.set_value();
  other.join();
  return status;
}
