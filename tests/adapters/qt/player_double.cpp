#include "platform/script/player.h"

// Stands in for the player of scripts: plays nothing.
namespace opd::script {
struct Player::State {};
Player::Player(const std::filesystem::path&, std::ostream&) {}
Player::~Player() = default;
bool Player::ended() const { return true; }
const std::optional<std::string>& Player::failure() const {
    static const std::optional<std::string> none;
    return none;
}
void Player::step(Driver&) {}
std::optional<ui::Answer> Player::answerTo(const ui::Message&) { return std::nullopt; }
} // namespace opd::script
