#include "notices/notifier_process.hpp"

#include "base/system/child_process.hpp"
#include "notices/installed_notifier.hpp"
#include "notices/notifier_protocol.hpp"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace quillmere::notices {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// The time that the notifier gets besides waiting for the service; more than its limit for calls to the bus.
constexpr auto margin = 2s;

}  // namespace

fs::path notifierProgram()
{
    const fs::path here = fs::read_symlink("/proc/self/exe").parent_path();
    const fs::path beside = here / "quillmere-notifier";
    return fs::exists(beside) ? beside : (here / installedNotifier).lexically_normal();
}

NotifierProcess::NotifierProcess(fs::path program, const NotifierPatience& patience)
    : program_(std::move(program)), patience_(patience)
{
}

NotifierProcess::~NotifierProcess() { stop(); }

void NotifierProcess::start(base::Moment now)
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == -1) {
        throw std::system_error(errno, std::generic_category(), "socketpair");
    }
    base::Descriptor ours(ends[0]);
    const base::Descriptor its(ends[1]);
    child_ = base::startChild(
        {.words = {program_.string(), std::to_string(::getpid()),
                   std::to_string(patience_.capabilities.count()), std::to_string(patience_.notice.count())},
         .input = its.get(),
         .output = its.get()});
    socket_ = std::move(ours);
    deadline_ = now + patience_.capabilities + margin;
}

void NotifierProcess::send(const NoticeRequest& request, base::Moment now)
{
    const std::string line = protocolLine(request);
    // The result is ignored: a line is far shorter than a socket's buffer, and a notifier that is gone or far
    // behind does not answer either, which the deadline notices.
    ::send(socket_.get(), line.data(), line.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    deadline_ = now + patience_.capabilities + patience_.notice + margin;
}

std::vector<NotifierMessage> NotifierProcess::takeMessages(base::Moment now)
{
    std::vector<NotifierMessage> messages;
    const bool isOpen = !isRunning() || receive();
    try {
        while (const auto message = takeRecord<NotifierMessage>(received_)) {
            messages.push_back(*message);
            handle(*message);
        }
    } catch (const nlohmann::json::exception&) {
        end(messages, "the notifier is of another version");
    }
    if (isRunning() && !isOpen) {
        end(messages, "the notifier has stopped working");
    } else if (deadline_ && now >= *deadline_) {
        end(messages,
            isReady_ ? "the notification service does not answer" : "the session bus does not answer");
    }
    return messages;
}

void NotifierProcess::handle(const NotifierMessage& message)
{
    switch (message.kind) {
        case NotifierMessageKind::ready: isReady_ = true; [[fallthrough]];
        case NotifierMessageKind::given:
        case NotifierMessageKind::failed:
        case NotifierMessageKind::unanswered: deadline_.reset(); break;
        case NotifierMessageKind::action:
        case NotifierMessageKind::closed: break;
        case NotifierMessageKind::ended: stop(); break;
    }
}

bool NotifierProcess::receive()
{
    std::array<char, 4096> bytes;
    ssize_t count = 0;
    while ((count = ::recv(socket_.get(), bytes.data(), bytes.size(), MSG_DONTWAIT)) > 0) {
        received_.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return count == -1 && (errno == EAGAIN || errno == EINTR);
}

void NotifierProcess::end(std::vector<NotifierMessage>& messages, const std::string& reason)
{
    stop();
    messages.push_back({.kind = NotifierMessageKind::ended, .text = reason});
}

void NotifierProcess::stop()
{
    if (isRunning()) {
        base::killChild(std::exchange(child_, -1));
    }
    socket_ = base::Descriptor();
    received_.clear();
    isReady_ = false;
    deadline_.reset();
}

}  // namespace quillmere::notices
