#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace opd::testserver {

/// What goes wrong with a statement.
struct Fault {
    enum class Kind {
        None,
        DropBefore, ///< the connection is dropped and the statement never run
        DropAfter,  ///< it is run, and the connection dropped before the answer
        DropWithin, ///< the connection is dropped in the middle of the answer
        Never,      ///< it is not run, and nothing is ever answered
        Slow,       ///< so many milliseconds pass first
        Garbage,    ///< the answer is a packet without sense; "raw": not even a packet
        Error,      ///< it is not run and fails with a number, "1205" or "1205,message"
    };
    Kind kind = Kind::None;
    std::string argument;
};

/// The faults that are to come, told by several threads.
///
/// One is written KIND@WHERE[:ARGUMENT], its kind as in "drop-before". WHERE says which statement it hits, counted from
/// when the fault was added: "3" the third, "sp_x" the first that holds this text in any letter case, "sp_x#3" the
/// third of those, "*" and "sp_x#*" all. Transactions count as the statements "begin", "commit" and "rollback". A login
/// is no statement, but is hit by a WHERE that begins with "login".
class Faults {
  public:
    /// Throws std::invalid_argument when it is not written so.
    void add(const std::string& fault);
    void clear();

    /// The fault that hits this statement, or login ("login USER DATABASE").
    Fault next(const std::string& text, bool isLogin);

  private:
    struct Coming {
        Fault fault;
        std::string piece;  ///< in capitals; empty for any statement
        long countdown = 1; ///< `always` without one
    };
    static constexpr long always = -1;

    static Coming parsed(const std::string& fault);

    std::mutex m_mutex; ///< guards the list
    std::vector<Coming> m_coming;
};

} // namespace opd::testserver
