// SPDX-License-Identifier: MIT
// Records every message shown while it lives, so that no test blocks on a modal message box.
#pragma once

#include <VemoGridLib/Messages.h>

#include <QList>

namespace VemoTest {

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
