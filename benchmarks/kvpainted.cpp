// Starts a program and prints the seconds until its first window stands painted on the screen, as a shell
// assignment: painted=0.123. Painted means: more than half of a mapped window of at least 300 x 200 pixels
// has been drawn into. Seen from outside, by the display server's own report, and so the same for every
// program.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace {

struct Window {
    int area = 0;
    int painted = 0;
};

/// Watches every window that appears.
class Screen {
  public:
    Screen()
        : _connection(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(_connection)) {
            std::fprintf(stderr, "kvpainted: no display\n");
            std::exit(1);
        }
        const auto *extension = xcb_get_extension_data(_connection, &xcb_damage_id);
        _damageNotify = static_cast<uint8_t>(extension->first_event + XCB_DAMAGE_NOTIFY);
        std::free(xcb_damage_query_version_reply(_connection, xcb_damage_query_version(_connection, 1, 1),
                                                 nullptr));
        const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
        xcb_change_window_attributes(_connection, root, XCB_CW_EVENT_MASK, &events);
        xcb_flush(_connection);
    }
    ~Screen() { xcb_disconnect(_connection); }
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    void waitForPaintedWindow() {
        while (auto *event = xcb_wait_for_event(_connection)) {
            const bool isDone = _handle(event);
            std::free(event);
            if (isDone) return;
        }
    }

  private:
    bool _handle(const xcb_generic_event_t *event) {
        const auto type = static_cast<uint8_t>(event->response_type & 0x7f);
        if (type == XCB_CREATE_NOTIFY) {
            _watch(reinterpret_cast<const xcb_create_notify_event_t *>(event)->window);
        } else if (type == XCB_CONFIGURE_NOTIFY) {
            const auto *size = reinterpret_cast<const xcb_configure_notify_event_t *>(event);
            _windows[size->window].area = size->width * size->height;
        } else if (type == _damageNotify) {
            return _isPainted(*reinterpret_cast<const xcb_damage_notify_event_t *>(event));
        }
        return false;
    }

    void _watch(xcb_window_t window) {
        const auto damage = xcb_generate_id(_connection);
        xcb_damage_create(_connection, damage, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        xcb_flush(_connection);
    }

    bool _isPainted(const xcb_damage_notify_event_t &damage) {
        constexpr int smallestArea = 300 * 200;
        Window &window = _windows[damage.drawable];
        window.area = damage.geometry.width * damage.geometry.height;
        window.painted += damage.area.width * damage.area.height;
        return window.area >= smallestArea && window.painted > window.area / 2;
    }

    xcb_connection_t *_connection;
    uint8_t _damageNotify = 0;
    std::map<xcb_drawable_t, Window> _windows;
};

} // namespace

int main(int argc, char **argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: kvpainted COMMAND [ARGUMENT...]\n");
        return 2;
    }
    Screen screen;
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (const int error = posix_spawnp(&child, argv[1], nullptr, nullptr, argv + 1, environ)) {
        std::fprintf(stderr, "kvpainted: %s: %s\n", argv[1], std::strerror(error));
        return 127;
    }
    screen.waitForPaintedWindow();
    const std::chrono::duration<double> painted = std::chrono::steady_clock::now() - start;
    std::printf("painted=%.4f\n", painted.count());
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
    return 0;
}
