#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A name server on this machine, on the test's event loop. The first part of a name determines the
/// answer:
///   silent   no answer
///   half     no answer when asked for an IPv6 address
///   late     no answer the first time
///   no       there is no such name
///   six      an IPv6 address only
///   big      only over TCP
///   two      two addresses of this machine, 127.0.0.2 before the usual one
/// All addresses are those of this machine.
class NameServer {
  public:
    NameServer() {
        do {
            udp_ = std::make_unique<QUdpSocket>();
            udp_->bind(QHostAddress::LocalHost);
        } while (!tcp_.listen(QHostAddress::LocalHost, udp_->localPort()));
        QObject::connect(udp_.get(), &QUdpSocket::readyRead, udp_.get(), [this] { AnswerUdp(); });
        QObject::connect(&tcp_, &QTcpServer::newConnection, &tcp_, [this] {
            QTcpSocket* client = tcp_.nextPendingConnection();
            QObject::connect(client, &QTcpSocket::readyRead, client,
                             [this, client] { AnswerTcp(*client); });
        });
    }

    /// In the form that the resolver takes.
    std::string Address() const { return "127.0.0.1:" + std::to_string(udp_->localPort()); }

    /// The number of questions for each name. Each address family counts separately.
    std::map<std::string, int> asked;

  private:
    // The length of the header, and the positions of the low bytes of two counts in it.
    static constexpr std::size_t kHeader = 12, kAnswers = 7, kAdditionalRecords = 11;
    static constexpr char kIPv4 = 1, kIPv6 = 28;  // kinds of question
    static constexpr char kNoSuchName = 3;
    static constexpr char kTruncated = 2;

    void AnswerUdp() {
        while (udp_->hasPendingDatagrams()) {
            std::string question(static_cast<std::size_t>(udp_->pendingDatagramSize()), '\0');
            QHostAddress from;
            std::uint16_t port = 0;
            udp_->readDatagram(question.data(), qint64(question.size()), &from, &port);
            const std::string reply = Reply(question, false);
            if (!reply.empty()) udp_->writeDatagram(reply.data(), qint64(reply.size()), from, port);
        }
    }

    /// Over TCP, each message begins with its length in two bytes. All messages here are short.
    void AnswerTcp(QTcpSocket& client) {
        while (client.bytesAvailable() > 0) {
            const std::string length = client.read(2).toStdString();
            const std::string reply = Reply(client.read(length[1]).toStdString(), true);
            const char reply_length[] = {0, char(reply.size())};
            client.write(reply_length, sizeof reply_length);
            client.write(reply.data(), qint64(reply.size()));
        }
    }

    std::string Reply(const std::string& question, bool tcp) {
        std::string name;
        std::size_t at = kHeader;
        for (; question[at] != 0; at += std::size_t(question[at]) + 1)
            name += (name.empty() ? "" : ".") + question.substr(at + 1, std::size_t(question[at]));
        const char kind = question[at + 2];
        const int times = ++asked[name];
        const auto is = [&](std::string_view rule) { return name.starts_with(rule); };
        if (is("silent") || (is("half") && kind == kIPv6) || (is("late") && times <= 2)) return "";

        // The reply repeats the question, with the header's flags and counts filled in and without
        // the additional record that newer resolvers append. The answers follow.
        std::string reply = question.substr(0, at + 5);
        const bool cut = is("big") && !tcp;
        const bool has = !cut && !is("no") && is("six") == (kind == kIPv6);
        reply[2] = static_cast<char>(0x81 | (cut ? kTruncated : 0));
        reply[3] = static_cast<char>(0x80 | (is("no") ? kNoSuchName : 0));
        reply[kAdditionalRecords] = 0;
        if (!has) return reply;
        using namespace std::string_literals;
        std::vector<std::string> addresses = {"\x7f\0\0\1"s};
        if (kind == kIPv6) addresses = {std::string(15, '\0') + '\1'};
        if (is("two")) addresses.insert(addresses.begin(), "\x7f\0\0\2"s);
        reply[kAnswers] = static_cast<char>(addresses.size());
        for (const std::string& address : addresses) {
            reply += "\xc0\x0c\0"s + kind + "\0\1\0\0\0\x3c\0"s + char(address.size()) + address;
        }
        return reply;
    }

    std::unique_ptr<QUdpSocket> udp_;
    QTcpServer tcp_;
};
