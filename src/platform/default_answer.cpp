#include "kwfy/ui.h"

namespace kwfy {

MsgAnswer DefaultAnswer(const MessageRequest& r) {
    switch (r.buttons) {
        case MsgButtons::OK:
            return MsgAnswer::OK;
        case MsgButtons::OKCancel:
            return r.defaultButton == 1 ? MsgAnswer::Cancel : MsgAnswer::OK;
        case MsgButtons::YesNo:
            return r.defaultButton == 1 ? MsgAnswer::No : MsgAnswer::Yes;
        case MsgButtons::YesNoCancel:
            return r.defaultButton == 2   ? MsgAnswer::Cancel
                   : r.defaultButton == 1 ? MsgAnswer::No
                                          : MsgAnswer::Yes;
    }
    return MsgAnswer::OK;
}

}  // namespace kwfy
