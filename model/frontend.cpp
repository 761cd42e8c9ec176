#include "model/frontend.hpp"

namespace brindle {

FrontEnd *silent_frontend() {
    static FrontEnd silent;
    return &silent;
}

FrontEnd *frontend = silent_frontend();

}  // namespace brindle
