#include "model/request.hpp"

namespace brindle {

bool BATCH = false;
TreeView *BATCH_TREE_GUI = nullptr;
Node *FILTER_NODE = nullptr;
Node *EVAL_NODE = nullptr;
bool ROOT_ONLY = false;
int CURRENT_TREE = 0;
bool SWAP_FLAG = false;

void reset_request() {
    BATCH = ROOT_ONLY = SWAP_FLAG = false;
    BATCH_TREE_GUI = nullptr;
    FILTER_NODE = EVAL_NODE = nullptr;
    CURRENT_TREE = 0;
}

}  // namespace brindle
