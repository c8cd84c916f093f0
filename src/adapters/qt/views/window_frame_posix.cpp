#include <xcb/xcb.h>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <thread>
#include <vector>

#include "adapters/qt/views/window_frame.h"
#include "platform/scope.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

constexpr QMargins kUsualFrame(8, 40, 8, 8);
/// Size hints with the same smallest and largest size: the flags of both, and 1 in the elements 5 to 8.
constexpr std::array<std::uint32_t, 18> kOnePixel{0x30, 0, 0, 0, 0, 1, 1, 1, 1};
constexpr auto kPatience = 200ms;
constexpr auto kPause = 1ms;
constexpr std::string_view kSupported = "_NET_SUPPORTED";
constexpr std::string_view kRequest = "_NET_REQUEST_FRAME_EXTENTS";
constexpr std::string_view kExtents = "_NET_FRAME_EXTENTS";

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

/// Asks the window manager for the frame of a window that is never shown.
class FrameQuestion : NonCopyable {
public:
    FrameQuestion(xcb_connection_t* display, Sizing sizing)
        : display_(display),
          root_(xcb_setup_roots_iterator(xcb_get_setup(display)).data->root),
          window_(xcb_generate_id(display)) {
        xcb_create_window(display_, XCB_COPY_FROM_PARENT, window_, root_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        if (sizing == Sizing::Fixed) {
            setProperty(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, kOnePixel);
        }
    }
    ~FrameQuestion() { xcb_destroy_window(display_, window_); }

    std::optional<QMargins> answer() const {
        const xcb_atom_t request = atom(kRequest);
        const std::vector<std::uint32_t> supported = property(root_, atom(kSupported));
        if (std::find(supported.begin(), supported.end(), request) == supported.end()) {
            return std::nullopt;
        }
        send(request);
        return awaitExtents();
    }

private:
    xcb_atom_t atom(std::string_view name) const {
        const auto length = static_cast<std::uint16_t>(name.size());
        const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
            xcb_intern_atom_reply(display_, xcb_intern_atom(display_, 0, length, name.data()), nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    std::vector<std::uint32_t> property(xcb_window_t window, xcb_atom_t name) const {
        constexpr std::uint32_t kMost = 4096;
        const std::unique_ptr<xcb_get_property_reply_t, Free> reply(xcb_get_property_reply(
            display_, xcb_get_property(display_, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, kMost), nullptr));
        if (!reply || reply->format != 32) {
            return {};
        }
        const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
        return {values, values + reply->value_len};
    }

    void setProperty(xcb_atom_t name, xcb_atom_t type, std::span<const std::uint32_t> values) const {
        xcb_change_property(display_, XCB_PROP_MODE_REPLACE, window_, name, type, 32,
                            static_cast<std::uint32_t>(values.size()), values.data());
    }

    void send(xcb_atom_t request) const {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window_;
        message.type = request;
        xcb_send_event(display_, 0, root_, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
    }

    std::optional<QMargins> awaitExtents() const {
        const xcb_atom_t extents = atom(kExtents);
        const auto deadline = std::chrono::steady_clock::now() + kPatience;
        do {
            if (const std::vector<std::uint32_t> sides = property(window_, extents); sides.size() == 4) {
                const auto side = [&](std::size_t i) { return static_cast<int>(sides[i]); };
                return QMargins(side(0), side(2), side(1), side(3));
            }
            std::this_thread::sleep_for(kPause);
        } while (std::chrono::steady_clock::now() < deadline);
        return std::nullopt;
    }

    xcb_connection_t* display_;
    xcb_window_t root_;
    xcb_window_t window_;
};

}  // namespace

QMargins measureFrame(Sizing sizing) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* display = x11 == nullptr ? nullptr : x11->connection();
    return display == nullptr ? QMargins() : FrameQuestion(display, sizing).answer().value_or(kUsualFrame);
}

}  // namespace orv
