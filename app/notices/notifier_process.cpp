#include "notices/notifier_process.hpp"

#include "base/system/child_process.hpp"

#include <sys/socket.h>
#include <unistd.h>
#include <nlohmann/json.hpp>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace quillmere::notices {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto patienceForStart = 5s;    // longer than the notifier's own with the service
constexpr auto patienceForNotice = 20s;  // the same

}  // namespace

fs::path notifierProgram()
{
    const fs::path here = fs::read_symlink("/proc/self/exe").parent_path();
    const fs::path beside = here / "quillmere-notifier";
    return fs::exists(beside) ? beside : (here / QUILLMERE_NOTIFIER_FROM_BIN).lexically_normal();
}

NotifierProcess::NotifierProcess(fs::path program) : program_(std::move(program)) {}

NotifierProcess::~NotifierProcess() { stop(); }

void NotifierProcess::start(Moment now)
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == -1) {
        throw std::system_error(errno, std::generic_category(), "socketpair");
    }
    base::Descriptor ours(ends[0]);
    const base::Descriptor its(ends[1]);
    child_ = base::startChild(
        {.words = {program_.string(), std::to_string(::getpid())}, .input = its.get(), .output = its.get()});
    socket_ = std::move(ours);
    deadline_ = now + patienceForStart;
}

void NotifierProcess::give(const NoticeRequest& notice, Moment now)
{
    const std::string line = protocolLine(notice);
    // A line is far shorter than what a socket holds. A notifier that is gone, or so far behind that it does
    // not fit, does not answer either, and that is noticed.
    ::send(socket_.get(), line.data(), line.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    deadline_ = now + patienceForNotice;
}

std::vector<NotifierWord> NotifierProcess::words(Moment now)
{
    std::vector<NotifierWord> words;
    const bool maySayMore = !isRunning() || receive();
    try {
        while (const auto word = takeRecord<NotifierWord>(arrived_)) {
            words.push_back(*word);
            heed(*word);
        }
    } catch (const nlohmann::json::exception&) {
        end(words, "the notifier is of another version");
    }
    if (isRunning() && !maySayMore) {
        end(words, "the notifier has stopped working");
    } else if (deadline_ && now >= *deadline_) {
        end(words, isReady_ ? "the notification service does not answer" : "the session bus does not answer");
    }
    return words;
}

void NotifierProcess::heed(const NotifierWord& word)
{
    switch (word.kind) {
        case NotifierWordKind::ready: isReady_ = true; [[fallthrough]];
        case NotifierWordKind::given:
        case NotifierWordKind::failed:
        case NotifierWordKind::unanswered: deadline_.reset(); break;
        case NotifierWordKind::action:
        case NotifierWordKind::closed: break;
        case NotifierWordKind::ended: stop(); break;
    }
}

bool NotifierProcess::receive()
{
    std::array<char, 4096> bytes;
    ssize_t count = 0;
    while ((count = ::recv(socket_.get(), bytes.data(), bytes.size(), MSG_DONTWAIT)) > 0) {
        arrived_.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return count == -1 && (errno == EAGAIN || errno == EINTR);
}

void NotifierProcess::end(std::vector<NotifierWord>& words, const std::string& reason)
{
    stop();
    words.push_back({.kind = NotifierWordKind::ended, .text = reason});
}

void NotifierProcess::stop()
{
    if (isRunning()) {
        base::killChild(std::exchange(child_, -1));
    }
    socket_ = base::Descriptor();
    arrived_.clear();
    isReady_ = false;
    deadline_.reset();
}

}  // namespace quillmere::notices
