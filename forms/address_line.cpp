#include "forms/address_line.h"

#include <QLineEdit>

#include "engine/site_start.h"
#include "engine/typed_address.h"
#include "platform/qt/ascii_host.h"
#include "platform/qt/local_text.h"

namespace ui {

namespace {

bas_Connections::AddressFault FaultOf(const QLineEdit& box) {
    return bas_Connections::FaultOfTypedAddress(platform::ToBytes(box.text()), platform::AsciiHost);
}

QString StartOfCrawl(const QLineEdit& box) {
    const std::string address = bas_Connections::CleanTypedAddress(platform::ToBytes(box.text()));
    return address == "www." ? "Enter the address of a web site."
                             : "The download starts at http://" + platform::FromBytes(address);
}

QString LinkTo(const std::string& offered) {
    if (offered.empty()) return {};
    return "&Use " + platform::FromBytes(offered).replace('&', "&&") + " instead";
}

}  // namespace

AddressLine::AddressLine(const char* name, QLineEdit* box, QWidget* parent)
    : NoteLine(name, parent), box_(box) {
    connect(box_, &QLineEdit::textChanged, this, &AddressLine::Judge);
    connect(this, &NoteLine::LinkClicked, this, &AddressLine::UseInstead);
    Judge();
}

void AddressLine::Judge() {
    const bas_Connections::AddressFault fault = FaultOf(*box_);
    const bool harmless = fault.what.empty();
    const QString text = harmless ? StartOfCrawl(*box_) : platform::FromBytes(fault.what);
    harmless ? Remark(text) : Warn(text, LinkTo(fault.offered));
    // The line itself never gets the focus, so screen readers get its text from the box.
    box_->setAccessibleDescription(text);
}

QString AddressLine::Warning() const {
    return platform::FromBytes(FaultOf(*box_).what);
}

void AddressLine::UseInstead() {
    const std::string instead = FaultOf(*box_).instead;
    box_->setFocus();
    if (!instead.empty()) box_->setText(platform::FromBytes(instead));
}

}  // namespace ui
