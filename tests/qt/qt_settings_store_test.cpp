#include "platform/qt/qt_settings_store.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include "platform/memory_settings_store.h"

namespace {

class QtSettingsStoreTest : public testing::Test {
  protected:
    QtSettingsStoreTest() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder_.path());
    }

    std::string Get(const std::string& key, const std::string& fallback = "fallback") const {
        return store_.Get("Vantorin", "Settings", key, fallback);
    }
    void Put(const std::string& key, const std::string& value) {
        store_.Put("Vantorin", "Settings", key, value);
    }
    QString FileName() const { return folder_.filePath("Vantorin/Vantorin.conf"); }
    void Damage(const QByteArray& content) const {
        QFile file(FileName());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
    }

    QTemporaryDir folder_;
    platform::QtSettingsStore store_;
};

}  // namespace

TEST_F(QtSettingsStoreTest, KeepsEveryTextAsItIs) {
    EXPECT_EQ(Get("LastURL"), "fallback");
    for (const std::string value :
         {"C:\\Websites\\", "", " blanks ", "http://a.com/?x=1&y=%20;z,\"q\"", "@Invalid()", "@x",
          "line\r\nline", "#;[Settings]",
          "Stra\xc3\x9f"
          "e"}) {
        Put("InDir", value);
        EXPECT_EQ(Get("InDir"), value);
        EXPECT_EQ(platform::QtSettingsStore().Get("Vantorin", "Settings", "InDir", "-"), value);
    }
    EXPECT_EQ(Get("Timeout"), "fallback");
    EXPECT_EQ(store_.Get("Other", "Settings", "InDir", "-"), "-");
    EXPECT_TRUE(QFile::exists(FileName())) << "in the folder of this test";
}

TEST_F(QtSettingsStoreTest, ADamagedStoreGivesTheFallbacksAndCanBeWrittenAgain) {
    Put("Timeout", "20");
    QByteArray noise;
    for (unsigned i = 0; i < 100'000; ++i)
        noise.append(static_cast<char>(i * i >> 7));
    for (const QByteArray& damage :
         {QByteArray(), noise, "[Settings]\nTimeout=" + noise, QByteArray("[Settings"),
          QByteArray("[Settings]\nTimeout=@Variant(\\0\\0\\0\\x9\\0\\x7f\\xff\\xff\\xff)"),
          QByteArray("[Settings]\nTimeout=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\xff)"),
          QByteArray("[Settings]\nTimeout=@ByteArray(20)"), QByteArray("[Settings]\nTimeout=1, 2"),
          QByteArray("[Settings]\nTimeout=@Rect(1 2)"), QByteArray(1'000'000, '\n')}) {
        Damage(damage);
        EXPECT_EQ(Get("LastURL"), "fallback");
        Get("Timeout");  // whatever it gives, it comes back
        Put("Timeout", "30");
        EXPECT_EQ(Get("Timeout"), "30");
    }
    Damage("[Settings]\nTimeout=@Size(1 2)");
    EXPECT_EQ(Get("Timeout"), "fallback") << "only text is a value";
}

TEST_F(QtSettingsStoreTest, AStoreThatCannotBeWrittenIsPassedOver) {
    ASSERT_TRUE(QDir().mkpath(FileName()));  // a folder in the file's place
    Put("Timeout", "20");
    EXPECT_EQ(platform::QtSettingsStore().Get("Vantorin", "Other", "Timeout", "fallback"),
              "fallback");
    EXPECT_TRUE(QDir(FileName()).exists());
}

TEST(MemorySettingsStore, KeepsValuesByAllTheirNames) {
    platform::MemorySettingsStore store;
    EXPECT_EQ(store.Get("a", "b", "c", "fallback"), "fallback");
    store.Put("a", "b", "c", "value");
    EXPECT_EQ(store.Get("a", "b", "c", "fallback"), "value");
    EXPECT_EQ(store.Get("a", "b", "x", "-") + store.Get("a", "x", "c", "-"), "--");
    EXPECT_EQ(store.Get("x", "b", "c", "-"), "-");
}
