// Writes one file per kind of raster image into a folder: where fuzzing of the raster check began.

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tests/support/image_builder.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: raster_seeds FOLDER\n");
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder);
  for (const korrin::test::NamedImage& image : korrin::test::imagesOfEveryKind(300, 20)) {
    std::ofstream file(folder / image.name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(image.bytes.data()),
               static_cast<std::streamsize>(image.bytes.size()));
    if (!file.flush()) {
      std::fprintf(stderr, "raster_seeds: cannot write %s\n", image.name.c_str());
      return 1;
    }
  }
  return 0;
}
