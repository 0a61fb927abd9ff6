#include "forms/search_dialog.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>

#include "forms/search_model.h"
#include "forms/z_dir.h"
#include "setup/settings.h"
#include "tests/qt/form_test.h"

namespace {

using Texts = std::vector<std::string>;

class SearchDialogTest : public FormTest {
  protected:
    SearchDialogTest() {
        bas_General::PutSetting("InDir", "c:/copy");
        Record("a.com",
               "! a.com\\one.html\r\nA needle, two Needles\r\n"
               "! a.com\\two.html\r\nno needle here\r\n"
               "! a.com\\notes.txt\r\nof knees\r\n");
        for (const char* page : {"a.com\\One.HTML", "a.com\\notes.txt"})
            system.files.Have(std::string("c:\\copy\\") + page, "");
    }
    ~SearchDialogTest() override {
        delete dialog.data();
        RunDeletions();
    }
    void Record(const std::string& host, const std::string& extract) {
        system.files.Have("c:\\copy\\_SearchData\\" + host + ".txt", extract);
    }
    void Open() {
        dialog = ui::SearchDialog::ShowOver(&parent);
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        CheckModel(*Pages().model());
    }
    QLineEdit& Words() { return *Find<QLineEdit>(*dialog, "Words"); }
    QListView& Pages() { return *Find<QListView>(*dialog, "Pages"); }
    std::string Outcome() { return Find<QLabel>(*dialog, "Outcome")->text().toStdString(); }
    Texts Listed() {
        Texts pages;
        for (int row = 0; row < Pages().model()->rowCount(); ++row)
            pages.push_back(
                QDir::fromNativeSeparators(Pages().model()->index(row, 0).data().toString())
                    .toStdString());
        return pages;
    }
    /// Waits for this result of the search.
    bool Finds(const std::string& outcome) {
        return WaitFor([&] { return Outcome() == outcome; });
    }

    QWidget parent;
    QPointer<ui::SearchDialog> dialog;
};

TEST_F(SearchDialogTest, SearchesWhileTyping) {
    Open();
    EXPECT_EQ(QApplication::focusWidget(), &Words());
    const std::tuple<const char*, const char*, Texts> keys[] = {
        {"n", "Type two letters or more", {}},
        {"e", "3 pages, 4 matches", {"a.com/one.html", "a.com/notes.txt", "a.com/two.html"}},
        {"e", "3 pages, 4 matches", {"a.com/one.html", "a.com/notes.txt", "a.com/two.html"}},
        {"d", "2 pages, 3 matches", {"a.com/one.html", "a.com/two.html"}},
        {"x", "No page contains these words", {}}};
    for (const auto& [key, outcome, pages] : keys) {
        QTest::keyClicks(&Words(), key);
        EXPECT_TRUE(Finds(outcome)) << key << ": " << Outcome();
        EXPECT_EQ(Listed(), pages) << key;
    }
    for (const char* words : {"\" \"", "\"a", "  a  "}) {
        Retype(&Words(), words);
        EXPECT_TRUE(Finds("Type two letters or more")) << words;
    }
    Retype(&Words(), "TWO \"a needle\"");
    EXPECT_TRUE(Finds("1 page, 2 matches")) << Outcome();
    const QListView& list = *dialog->findChild<QListView*>();
    EXPECT_GT(list.sizeHintForRow(0), 2 * list.fontMetrics().height()) << "a path and an excerpt";
}

TEST_F(SearchDialogTest, TheFocusStaysInTheBox) {
    Open();
    QTest::keyClicks(&Words(), "need");
    QTest::keyClick(&Words(), Qt::Key_Return);
    QTest::keyClick(&Words(), Qt::Key_Down);
    EXPECT_EQ(Pages().currentIndex().row(), 1);
    QTest::keyClicks(&Words(), "le");
    EXPECT_EQ(Pages().currentIndex().row(), 1) << "still the same page";
    QTest::keyClick(&Words(), Qt::Key_Return);
    EXPECT_EQ(Outcome(), "This page is no longer in the folder");
    QTest::keyClick(&Words(), Qt::Key_Up);
    QTest::keyClick(&Words(), Qt::Key_Enter);
    EXPECT_EQ(Outcome(), "2 pages, 3 matches");
    EXPECT_EQ(QApplication::focusWidget(), &Words());
    Retype(&Words(), "ees");
    const QPoint row = Pages().visualRect(Pages().model()->index(0, 0)).center();
    QTest::mouseClick(Pages().viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(Pages().viewport(), Qt::LeftButton, {}, row);
    EXPECT_EQ(system.processes.files,
              (Texts{"c:\\copy\\a.com\\One.HTML#needle", "c:\\copy\\a.com\\One.HTML#needle",
                     "c:\\copy\\a.com\\notes.txt#knees"}));
    Retype(&Words(), "nothing");
    QTest::keyClick(&Words(), Qt::Key_Return);
    EXPECT_EQ(system.processes.files.size(), 3U);
    QTest::keyClick(&Words(), Qt::Key_Escape);
    RunDeletions();
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(SearchDialogTest, SaysWhyThereIsNothingToSearch) {
    system.files.Have("c:\\other");
    system.files.Have("c:\\closed\\_SearchData");
    system.files.unreadable = {"c:\\closed\\_SearchData"};
    Open();
    Words().setText("needle");
    const std::pair<const char*, const char*> folders[] = {
        {"c:\\none", ": there is no such folder"},
        {"c:\\other", ": no page was saved there"},
        {"c:\\closed", ": its records cannot be read"},
        {"c:\\copy", "2 pages, 3 matches"}};
    for (const auto& [folder, outcome] : folders) {
        Find<QLineEdit>(*dialog, "Folder")->setText(folder);
        EXPECT_TRUE(Outcome().ends_with(outcome)) << Outcome();
        EXPECT_EQ(Find<QPushButton>(*dialog, "Open")->isEnabled(), !Listed().empty());
    }
    Click(*dialog, "Choose");
    auto* const chooser = dialog->findChild<ui::zDir*>();
    ASSERT_NE(chooser, nullptr);
    QTest::mouseClick(Find<QPushButton>(*chooser, "Command1"), Qt::LeftButton);
    EXPECT_EQ(Find<QLineEdit>(*dialog, "Folder")->text(), "c:\\copy\\");
    EXPECT_EQ(bas_General::StoredFolder(), "c:/copy") << "the wizard's folder is unchanged";
}

TEST_F(SearchDialogTest, FindsPagesSavedMeanwhile) {
    Open();
    QTest::keyClicks(&Words(), "needle");
    ASSERT_TRUE(Finds("2 pages, 3 matches"));
    Record("b.com", "! b.com\\new.html\r\nneedle\r\n! b.com\\cut.html\r\nneedle");
    QTest::keyClick(&Words(), Qt::Key_F5);
    EXPECT_TRUE(Finds("3 pages, 4 matches")) << Outcome();
    system.files.files.clear();
    Pages().viewport()->grab();  // each snippet is read when it is painted
    EXPECT_EQ(Listed().size(), 3U);
}

TEST_F(SearchDialogTest, TakesALargeExtractInSlicesAndDropsASearchUnderWay) {
    std::string extract = "! a.com\\first.html\r\nneedle\r\n";
    std::string text;
    while (text.size() < 20'000)
        text += "nd xx ";
    for (int page = 0; page < 2000; ++page)
        extract += "! a.com\\" + std::to_string(page) + "\r\n" + text + "\r\n";
    Record("a.com", extract + "! a.com\\last.html\r\nneedle needs\r\n");
    Open();
    QTest::keyClicks(&Words(), "nee");
    EXPECT_EQ(Outcome(), "Searching... 1 page, 1 match");
    EXPECT_EQ(Listed(), Texts{"a.com/first.html"});
    QTest::keyClicks(&Words(), "ds");
    EXPECT_EQ(Listed(), Texts{}) << "no page of the last search can be opened";
    EXPECT_TRUE(Finds("1 page, 1 match")) << Outcome();
    EXPECT_EQ(Listed(), Texts{"a.com/last.html"});
    Retype(&Words(), "xx");
    EXPECT_TRUE(Outcome().starts_with("Searching..."));
    delete dialog.data();
}

TEST_F(SearchDialogTest, ShowsWhateverAnExtractHolds) {
    using namespace std::string_literals;
    const std::string nul = "! a\\\0.html\r\nneedle \0\1\xFF\xC3 needle\r\n"s;
    Record("a.com", nul + "! \r\nneedle\r\n! ..\\..\\x\r\nneedle\r\n! " + std::string(5000, 'p') +
                        "\r\n" + std::string(100'000, '\xE2') + "needle\r\nneedle\r\n");
    Open();
    QTest::keyClicks(&Words(), "needle");
    ASSERT_TRUE(Finds("4 pages, 5 matches")) << Outcome();
    for (int row = 0; row < 4; ++row) {
        EXPECT_FALSE(Pages().grab().isNull());
        QTest::keyClick(&Words(), Qt::Key_Return);
        EXPECT_EQ(Outcome(), "This page is no longer in the folder");
        QTest::keyClick(&Words(), Qt::Key_Down);
    }
    EXPECT_EQ(system.processes.files, Texts{});
}

TEST_F(SearchDialogTest, MarksTheMatches) {
    const auto local = [](const char* text) { return platform::ToBytes(QString::fromUtf8(text)); };
    Record("a.com", local("! p\r\n\xC3\xA9t\xC3\xA9 Needle, \xF0\x9F\x98\x80 needles\r\n"));
    ui::SearchModel model(nullptr);
    model.Begin(local("needle \xC3\x89T\xC3\x89"), "c:\\copy");
    ASSERT_TRUE(WaitFor([&] { return !model.IsSearching(); }));
    const QString snippet = model.SnippetAt(0);
    QStringList marked;
    for (const auto& [begin, length] : model.MatchesAt(0))
        marked += snippet.mid(begin, length);
    EXPECT_EQ(marked.join("|").toStdString(), "\xC3\xA9t\xC3\xA9|Needle|needle");
}

}  // namespace
