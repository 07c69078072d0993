// SPDX-License-Identifier: MIT
// The recording message handler the tests install instead of modal message boxes.
#pragma once

#include <VemoGridLib/Messages.h>

#include <QList>

namespace VemoTest {

/// Records every message shown while it lives and puts the previous handler back afterwards,
/// so that no test blocks on a modal message box.
class MessageRecorder
{
public:
    MessageRecorder()
        : m_previous(VemoGridLib::setMessageHandler(
              [this](const VemoGridLib::Message& m) { messages.append(m); }))
    {}
    ~MessageRecorder() { VemoGridLib::setMessageHandler(m_previous); }
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    QList<VemoGridLib::Message> messages;

private:
    VemoGridLib::MessageHandler m_previous;
};

} // namespace VemoTest
