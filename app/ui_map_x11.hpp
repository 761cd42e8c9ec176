#pragma once
// The X server's part in the screen map: the order of the windows, and who asks for a sign. On other
// platforms nobody asks.
#include <QAbstractNativeEventFilter>
#include <QWidget>

#include <cstdint>
#include <functional>

struct xcb_connection_t;

namespace brindle {

class MapSync final : public QAbstractNativeEventFilter {
  public:
    // Tells on the root window where to ask. `asked` is called for each client message that does.
    explicit MapSync(std::function<void()> asked);
    ~MapSync() override;

    // Says to who has asked that everything before the question has been dealt with.
    void answer();
    // How many windows of the screen lie below that window; -1: it is not known.
    int place_of(WId window) const;

    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;

  private:
    std::uint32_t atom(const char *name) const;
    void set_root_property(const char *name, std::uint32_t type, std::uint32_t value) const;

    std::function<void()> asked_;
    xcb_connection_t *server_ = nullptr;  // null: another platform
    std::uint32_t root_ = 0;
    std::uint32_t question_ = 0;  // the type of the messages
    std::uint32_t number_ = 0;    // of the last one that is not answered; 0: none
};

}  // namespace brindle
