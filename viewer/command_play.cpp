#include "viewer/command_play.h"

#include <fstream>
#include <iostream>
#include <sstream>

#include "viewer/conversation.h"
#include "viewer/player.h"

namespace qor::viewer {

namespace {

constexpr int kRefused = 2;

std::string ReadAll(std::istream& in) {
    std::ostringstream text;
    if (in.peek() != std::istream::traits_type::eof()) text << in.rdbuf();
    if (in.bad() || text.bad()) throw Mistake("", "cannot be read");
    return text.str();
}

std::string ReadText(const std::string& file, std::istream& standardInput) {
    if (file == "-") return ReadAll(standardInput);
    std::ifstream in(file, std::ios::binary);
    if (!in) throw Mistake("", "cannot be read");
    return ReadAll(in);
}

}  // namespace

int PlayConversation(const std::string& file, std::istream& in, std::ostream& out, std::ostream& errors) {
    try {
        const Json conversation = ReadConversation(ReadText(file, in));
        // What is wrong with a dialog's controls shows only when it opens, and a refused file leaves no
        // transcript: it is written when the conversation has ended.
        Transcript transcript;
        Player(conversation, transcript).Play();
        transcript.Write(out);
        return 0;
    } catch (const Mistake& mistake) {
        errors << file << ": " << (mistake.place().empty() ? "" : mistake.place() + ": ") << mistake.what()
               << '\n';
        return kRefused;
    }
}

}  // namespace qor::viewer
