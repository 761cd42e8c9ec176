#pragma once

namespace brindle {

// A tree window as the core knows it: somebody to whom an answer belongs. windows/'s TreeWindow derives from
// it.
struct TreeView {
    virtual ~TreeView() = default;
};

}  // namespace brindle
