// A notifier that is no process: it answers at once, as the test says.
#pragma once

#include "notices/notifier_channel.hpp"

#include <string>
#include <utility>
#include <vector>

namespace quillmere::test {

class FakeNotifier : public notices::NotifierChannel {
public:
    using Kind = notices::NotifierMessageKind;
    using Message = notices::NotifierMessage;

    /// Answers each request with a number from now on; starts lead to this service.
    void becomesReady(const std::string& service = "bus:1.1")
    {
        onStart_ = {.kind = Kind::ready, .text = service};
    }
    /// Ends at each start from now on.
    void becomesUnreachable(const std::string& reason) { onStart_ = {.kind = Kind::ended, .text = reason}; }
    /// Answers each request with this message from now on.
    void answersWith(const Message& message)
    {
        answer_ = message;
        numbersNotices_ = false;
    }
    /// Leaves requests unanswered from now on.
    void fallsSilent() { isSilent_ = true; }

    /// As a process that its watch has killed.
    void stops()
    {
        messages_.clear();
        isRunning_ = false;
        isReady_ = false;
    }

    /// Sends a message by itself.
    void sends(const Message& message) { messages_.push_back(message); }
    void choosesAction(std::uint32_t number, const std::string& key)
    {
        sends({.kind = Kind::action, .number = number, .text = key});
    }
    void ends(const std::string& reason = "") { sends({.kind = Kind::ended, .text = reason}); }

    std::vector<notices::NoticeRequest> requests;
    std::size_t startCount = 0;

    bool isRunning() const override { return isRunning_; }
    bool isReady() const override { return isReady_; }
    int descriptor() const override { return -1; }

    void start(base::Moment) override
    {
        ++startCount;
        isRunning_ = true;
        sends(onStart_);
    }

    void send(const notices::NoticeRequest& request, base::Moment) override
    {
        requests.push_back(request);
        if (isSilent_) {
            return;
        }
        if (numbersNotices_) {
            answer_.number = request.replaces != 0 ? request.replaces : ++lastNumber_;
        }
        sends(answer_);
    }

    std::vector<Message> takeMessages(base::Moment) override
    {
        for (const Message& message : messages_) {
            isReady_ = message.kind != Kind::ended && (isReady_ || message.kind == Kind::ready);
            isRunning_ = isRunning_ && message.kind != Kind::ended;
        }
        return std::exchange(messages_, {});
    }

private:
    Message onStart_{.kind = Kind::ready, .text = "bus:1.1"};
    Message answer_{.kind = Kind::given};
    bool numbersNotices_ = true;
    bool isSilent_ = false;
    bool isRunning_ = false;
    bool isReady_ = false;
    std::uint32_t lastNumber_ = 0;
    std::vector<Message> messages_;
};

}  // namespace quillmere::test
