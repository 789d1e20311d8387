// The server side of a conversation: components that answer as the conversation's file says, or by default so
// that a run succeeds, and that report every call.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/dictionary.h"
#include "viewer/answers.h"
#include "viewer/transcript.h"

namespace qor::viewer {

/// What the file says of the components. Names are compared without regard to case.
class ComponentScript {
 public:
    /// Lays checked `components` over what stands: null takes a component away, or a member's answer,
    /// or all that the file has said. Borrows the answers.
    void Lay(const Json& components);

    bool IsNamed(std::string_view component) const;    // with members of its own
    bool IsRemoved(std::string_view component) const;  // taken away by null
    /// Null where the member answers by default.
    Answer* Find(std::string_view component, std::string_view member);

 private:
    struct Component {
        std::string name;
        bool removed = false;
        std::vector<std::pair<std::string, std::unique_ptr<Answer>>> members;
    };
    Component& At(std::string_view name);
    const Component* Find(std::string_view name) const;
    static void LayMember(Component& component, const std::string& member, const Json& answer);

    std::vector<Component> components_;
};

/// The values of the session services. Nothing stands for services that do not exist.
class SessionStore {
 public:
    /// Lays values over what stands; null takes a key away, or with `session` itself the services.
    void Lay(const Json& session, const References& references);

    bool Exists() const { return exists_; }
    Value Get(std::string_view key) const { return values_->Get(key); }
    /// Whether the session logged in from outside, so that the other service holds its values.
    bool IsOuterLogin() const;

 private:
    bool exists_ = true;
    Ref<Dictionary> values_ = MakeRef<OrderedDictionary>();
};

/// What the user profile keeps, by product and section.
class ProfileStore {
 public:
    void Load(const Json& profiles, const References& references);
    /// A copy of what is kept.
    Ref<Dictionary> Open(const std::string& product, const std::string& section) const;
    void Save(const std::string& product, const std::string& section, const Dictionary& values);

 private:
    std::vector<std::pair<std::string, Ref<Dictionary>>> kept_;  // by "product/section"
};

/// All that a server component answers from. The components borrow it.
struct Server {
    Transcript& transcript;
    const ObjectNames& names;
    Date today;
    ComponentScript script{};
    SessionStore session{};
    ProfileStore profiles{};
};

/// Whether a component of that name can be created.
bool ComponentExists(const Server& server, std::string_view name);
/// A new component of a name that exists.
Ref<Object> MakeComponent(Server& server, std::string_view name);

}  // namespace qor::viewer
