// The interface description of the component, written from the member tables: what early-bound hosts and
// object browsers see is what late binding answers.
#pragma once

#include <string>

namespace qor::windows {

/// The text of windows/component.idl.
std::string WriteIdl();

}  // namespace qor::windows
