// IncomingArguments: the arguments of a host's call in the order of the parameters, with room for what comes
// back by reference. Automation passes them last first; named ones stand ahead, each with its place.
#pragma once

#include <array>
#include <memory_resource>
#include <vector>

#include "windows/bridge.h"

namespace qor::windows {

class IncomingArguments {
 public:
    /// `parameters` outlives the call; `nameable` of the member's parameters can be named.
    IncomingArguments(const DISPPARAMS& parameters, WORD flags, std::size_t nameable);
    IncomingArguments(const IncomingArguments&) = delete;
    IncomingArguments& operator=(const IncomingArguments&) = delete;

    /// Whether each argument has a place; if not, the call must not be made.
    HRESULT placed() const { return placed_; }
    /// Takes the values over. Raises 13 for one that the library cannot hold.
    void Take();
    /// How the member is reached. A put that is left open goes by the new value.
    InvokeKind kind() const;
    Arguments arguments() { return arguments_; }

    /// Puts what has changed into the host's variables. Raises 13 or 6 where one cannot hold it.
    void HandBack();
    /// Tells which of the caller's arguments was refused, if it was one of them.
    void TellWrong(UINT* wrongArgument) const;

 private:
    /// The caller's variable behind an argument.
    struct Passed {
        std::size_t argument;
        Value now, before;
    };
    static constexpr UINT kLeftOut = ~0u;

    HRESULT Place(std::size_t nameable);
    std::size_t Count() const { return places_.empty() ? parameters_.cArgs : places_.size(); }
    UINT PlaceOf(std::size_t argument) const;
    void TakeOne(std::size_t argument);

    const DISPPARAMS& parameters_;
    const WORD flags_;
    // The few arguments of most calls need no allocation.
    std::array<std::byte, 512> room_;
    std::pmr::monotonic_buffer_resource memory_{room_.data(), room_.size()};
    std::pmr::vector<UINT> places_{&memory_};  // among the caller's; empty where none is named
    std::pmr::vector<Passed> values_{&memory_};
    std::pmr::vector<Argument> arguments_{&memory_};
    UINT wrong_ = kLeftOut;  // the caller's argument that has no place, or cannot be held
    HRESULT placed_;
};

}  // namespace qor::windows
