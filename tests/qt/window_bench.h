#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/net/qt_socket.h"
#include "platform/qt/qt_event_loop.h"
#include "tests/fakes/fake_system.h"
#include "ui/frm_main.h"
#include "ui/window_holder.h"

/// The real window with real sockets, on an in-memory system.
namespace bench {

/// A real socket that connects to one port of this machine, whatever the host.
class LocalSocket : public platform::Socket {
  public:
    explicit LocalSocket(std::uint16_t port) : port_(port) {
        socket_.on_connect = [this] { on_connect(); };
        socket_.on_data = [this] { on_data(); };
    }
    void Connect(const std::string&, std::uint16_t) override {
        socket_.Connect("127.0.0.1", port_);
    }
    bool SendData(std::string_view bytes) override { return socket_.SendData(bytes); }
    std::string GetData() override { return socket_.GetData(); }
    void Close() override { socket_.Close(); }
    platform::SocketState State() const override { return socket_.State(); }
    platform::SocketFailure Failure() const override { return socket_.Failure(); }

  private:
    std::uint16_t port_;
    platform::QtSocket socket_;
};

class WindowTest : public testing::Test {
  protected:
    void SetUp() override {
        system.files.Have("c:\\program\\temp\\filetypes.txt", ".html\r\n");
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, [this] {
            QTcpSocket* peer = server_.nextPendingConnection();
            QObject::connect(peer, &QTcpSocket::readyRead, [this, peer] {
                const std::string request = peer->readAll().toStdString();
                const auto page = pages.find(request.substr(4, request.find(' ', 4) - 4));
                if (page == pages.end()) return;
                peer->write(QByteArray::fromStdString("HTTP/1.0 200 OK\r\n\r\n" + page->second));
                peer->disconnectFromHost();
            });
        });
    }

    ui::frmMain& Window() { return holder.Current(); }

    template <typename Control>
    Control& The(const char* name) {
        return *Window().findChild<Control*>(name);
    }

    bool WaitFor(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 20'000);
    }

    void Open() {
        holder.Load();
        holder.Show();
        ASSERT_TRUE(WaitFor([&] { return !Window().ShowWizardOnActivate; }));
    }

    void StartByKeys(const char* address) {
        The<QLineEdit>("Text1").setFocus();
        QTest::keyClicks(&The<QLineEdit>("Text1"), address);
        QTest::keyClick(&The<QLineEdit>("Text1"), Qt::Key_Return);
    }

    void Click(const char* button) {
        QTest::mouseClick(&The<QAbstractButton>(button), Qt::LeftButton);
    }
    void Choose(const char* menu_entry) { The<QAction>(menu_entry).trigger(); }

    std::map<std::string, std::string> pages;  ///< by path; the server is silent for others
    platform::QtEventLoop events;
    fakes::FakeSystem system{events};
    int wizards = 0;
    std::function<void()> in_wizard = [] {};  ///< runs while the wizard is open
    ui::WindowHolder holder{
        events,
        {[this](QWidget&) {
             ++wizards;
             in_wizard();
         },
         [this] { return std::make_unique<LocalSocket>(server_.serverPort()); }}};

  private:
    QTcpServer server_;
};

}  // namespace bench
