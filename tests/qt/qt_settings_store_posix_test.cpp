#include "platform/qt/qt_settings_store.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace {

class QtSettingsStoreTest : public testing::Test {
  protected:
    QtSettingsStoreTest() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder_.path());
    }

    std::string Get() const { return store_.Get("Vantorin", "Settings", "Timeout", "fallback"); }
    void Put(const std::string& value) { store_.Put("Vantorin", "Settings", "Timeout", value); }

    QTemporaryDir folder_;
    QString file_ = folder_.filePath("Vantorin/Vantorin.conf");
    platform::QtSettingsStore store_;
};

}  // namespace

TEST_F(QtSettingsStoreTest, KeepsEveryTextAsItIs) {
    EXPECT_EQ(Get(), "fallback");
    for (const std::string value :
         {"C:\\Websites\\", "", " a ", "http://a.com/?x=1&y=%20;z,\"q\"", "@Invalid()", "@x",
          "line\r\nline", "#;[Settings]", "\xc3\x9f"}) {
        Put(value);
        EXPECT_EQ(Get(), value);
    }
    EXPECT_EQ(store_.Get("Vantorin", "Settings", "Other", "-"), "-");
    EXPECT_EQ(store_.Get("Other", "Settings", "Timeout", "-"), "-");
    EXPECT_TRUE(QFile::exists(file_)) << "in the folder of this test";
}

TEST_F(QtSettingsStoreTest, ADamagedStoreCanBeWrittenAgainAndOnlyTextIsAValue) {
    Put("20");
    for (const QByteArray& damage :
         {QByteArray("[Settings"), QByteArray("[Settings]\nTimeout=@Size(1 2)"),
          QByteArray("[Settings]\nTimeout=@Variant(\\0\\0\\0\\x9\\0\\x7f\\xff\\xff\\xff)"),
          QByteArray("[Settings]\nTimeout=1, 2"), QByteArray(100'000, '\xa5')}) {
        QFile file(file_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(damage);
        file.close();
        EXPECT_EQ(Get(), "fallback") << damage.toStdString();
        Put("30");
        EXPECT_EQ(Get(), "30");
    }
}

TEST_F(QtSettingsStoreTest, AStoreThatCannotBeWrittenIsPassedOver) {
    ASSERT_TRUE(QDir().mkpath(file_));  // a folder in the file's place
    Put("20");
    EXPECT_TRUE(QDir(file_).exists());
}
