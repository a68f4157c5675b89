// SPDX-License-Identifier: Apache-2.0
#include "gui/GuardedApplication.h"

#include <exception>

namespace tw {

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    std::string failure;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        failure = e.what();
    } catch (...) {
        failure = "an unknown failure";
    }
    if (onFailure) onFailure(failure);
    return false;
}

} // namespace tw
