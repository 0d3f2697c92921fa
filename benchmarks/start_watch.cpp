// start-watch: starts a program on the X display and tells how long it took from the
// start until the X server mapped its first window, and until the program first drew
// into that window (its first picture on the screen), and how much memory (resident
// set) it holds half a second after that. It listens for the server's own events (map
// and damage) instead of asking the server again and again, so the watching takes no
// time from the program watched.
// Usage: start-watch PROGRAM [ARGUMENTS...]; prints "MAPPED_US DRAWN_US KIB" on
// standard output; exit status 1 when no window was drawn within 10 seconds.
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

long residentKib(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:"))
            return std::strtol(line.c_str() + 6, nullptr, 10);
    return -1;
}

void stop(pid_t pid) {
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: start-watch PROGRAM [ARGUMENTS...]\n");
        return 2;
    }
    int screenNumber = 0;
    xcb_connection_t* x = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(x)) {
        std::fprintf(stderr, "start-watch: no X display\n");
        return 2;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(x));
    for (int i = 0; i < screenNumber; ++i)
        xcb_screen_next(&screens);
    // Damage tells when a window is drawn into; it must be asked for its version first.
    const xcb_query_extension_reply_t* damage = xcb_get_extension_data(x, &xcb_damage_id);
    if (!damage || !damage->present) {
        std::fprintf(stderr, "start-watch: the X server has no DAMAGE extension\n");
        return 2;
    }
    free(xcb_damage_query_version_reply(
        x, xcb_damage_query_version(x, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION),
        nullptr));
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    // A reply makes sure the server listens for us before the program starts.
    free(xcb_request_check(
        x, xcb_change_window_attributes_checked(x, screens.data->root, XCB_CW_EVENT_MASK, &mask)));

    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        execvp(argv[1], argv + 1);
        _exit(127);
    }
    const auto deadline = start + std::chrono::seconds(10);
    const auto since = [&](std::chrono::steady_clock::time_point t) {
        return static_cast<long long>(
            std::chrono::duration_cast<std::chrono::microseconds>(t - start).count());
    };
    long long mapped = -1;
    pollfd fd{xcb_get_file_descriptor(x), POLLIN, 0};
    while (std::chrono::steady_clock::now() < deadline) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(x)) {
            const auto now = std::chrono::steady_clock::now();
            const int type = event->response_type & 0x7f;
            if (type == XCB_CREATE_NOTIFY) {
                // Every new window is watched for drawing from the moment it exists,
                // before the program can draw into it.
                const auto* created = reinterpret_cast<xcb_create_notify_event_t*>(event);
                xcb_damage_create(x, xcb_generate_id(x), created->window,
                                  XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
                xcb_flush(x);
            } else if (type == XCB_MAP_NOTIFY && mapped < 0) {
                mapped = since(now);
            } else if (type == damage->first_event + XCB_DAMAGE_NOTIFY && mapped >= 0) {
                free(event);
                std::this_thread::sleep_for(std::chrono::milliseconds(500));
                const long kib = residentKib(pid);
                stop(pid);
                std::printf("%lld %lld %ld\n", mapped, since(now), kib);
                return 0;
            }
            free(event);
        }
        if (waitpid(pid, nullptr, WNOHANG) == pid)
            break; // the program ended without a window
        poll(&fd, 1, 50);
    }
    std::fprintf(stderr, "start-watch: no window from %s\n", argv[1]);
    stop(pid);
    return 1;
}
