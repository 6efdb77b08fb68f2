// A pipe under a picture's name: to read it would wait for ever.
#include "desktop/qt/picture_store.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

TEST(PictureStorePosixTest, WaitsForNoPipe) {
  const scripted::TemporaryFolder folder;
  const std::string pipe = folder.file("tiempo.ico");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
  forms::qt::PictureStore pictures;
  EXPECT_EQ(pictures.size(QString::fromStdString(pipe)), std::nullopt);
  EXPECT_TRUE(pictures.icon(QString::fromStdString(pipe)).isNull());
}

} // namespace
