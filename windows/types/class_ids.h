// The identities of the component, fixed for ever: class, interface and event ids carry the report's number.
// No header of Windows is needed here, so that the description of the component can be made anywhere.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace qor {
class Object;
}

namespace qor::windows {

/// Of the same shape as the system's GUID.
struct ComponentId {
    std::uint32_t data1;
    std::uint16_t data2, data3;
    std::array<std::uint8_t, 8> data4;

    friend bool operator==(const ComponentId&, const ComponentId&) = default;
};

enum class IdKind : std::uint16_t { Class = 0x9b50, Interface = 0x9b51, Events = 0x9b52, Library = 0x9b5f };

constexpr ComponentId MakeId(std::uint32_t number, IdKind kind) {
    return {0x3e6c0000 + number,
            static_cast<std::uint16_t>(kind),
            0x4c3e,
            {0x8d, 0x17, 0x5a, 0xc0, 0xb1, 0xd2, 0xe3, 0xf4}};
}

inline constexpr std::uint32_t kBarNumber = 1, kPassNumber = 2;  // beside the reports' five digits
inline constexpr ComponentId kLibraryId = MakeId(0, IdKind::Library);
inline constexpr ComponentId kBarEventsId = MakeId(kBarNumber, IdKind::Events);
inline constexpr ComponentId kPassEventsId = MakeId(kPassNumber, IdKind::Events);

/// A class that hosts create by name.
struct PublicClass {
    std::string name;  // "Rpt10522"
    std::uint32_t number;

    std::string ProgId() const { return "QORArApRpt." + name; }
    ComponentId ClassId() const { return MakeId(number, IdKind::Class); }
    ComponentId InterfaceId() const { return MakeId(number, IdKind::Interface); }
};

/// The reports by number, then Bar and clsPass.
std::span<const PublicClass> PublicClasses();

/// The public class of an object; null for the objects that hosts do not create.
const PublicClass* PublicClassOf(const Object& object);

/// "3E6C2919-9B50-4C3E-8D17-5AC0B1D2E3F4"
std::string IdText(const ComponentId& id);

}  // namespace qor::windows
