// The beginning of every test program. What it and the programs that it starts see of fonts is told by the
// repository, however it was called.
#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
  ::setenv("FONTCONFIG_FILE", KALDRIX_SOURCE_DIR "/scripts/fonts.conf", 1);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
