#pragma once
// Prolog in the main window: the query field and the output window.
#include <memory>

#include "prolog/session.hpp"

namespace brindle::tk {
class Frame;
}

namespace brindle {

// The Prolog session with the main window's parts, which have been made and must live as long as this. One
// exists while the event loop runs.
class MainProlog {
  public:
    explicit MainProlog(tk::Frame &main_frame);
    ~MainProlog();
    MainProlog(const MainProlog &) = delete;
    MainProlog &operator=(const MainProlog &) = delete;

    // Starts the Prolog child. "Quit" ends it. False: no process could be started; the reason is on standard
    // error, and the query field stays without input.
    bool start();

  private:
    friend PrologSession &the_prolog();

    std::unique_ptr<PrologHost> host_;
    PrologSession session_;
};

// The session of the one MainProlog. REQUIRES: it exists.
PrologSession &the_prolog();

}  // namespace brindle
