#pragma once

#include "com/object.h"

#include <optional>
#include <string>

namespace opd::search {

/// What a code field wants to have found.
struct CodeWish {
    std::string text;    ///< to search for; empty for the whole list
    std::string present; ///< the code on whose row the list opens; empty for the top
};

/// A code and what it stands for.
struct NamedCode {
    std::string code;
    std::string name;
};

struct Address {
    std::string zipCode;
    std::string town;
    std::string province;
};

struct Doctor {
    std::string code;
    std::string lastName;
    std::string firstName;
};

/// A company account.
struct Company {
    std::string accountNumber;
    std::string name;
    std::string companyClass;
};

/// The code search component, typed. Every listing shows its window when a text leads to no single record, and answers
/// nothing when none was found or chosen. All throw com::Error.
class CodeListing {
  public:
    /// The component must outlive the listing.
    explicit CodeListing(const com::Object& codeSearch) : m_codeSearch(codeSearch) {}

    std::optional<Address> address(const CodeWish& wish) const;
    std::optional<Doctor> doctor(const CodeWish& wish) const;
    std::optional<NamedCode> religion(const CodeWish& wish) const;
    std::optional<Company> company(const CodeWish& wish) const;
    std::optional<NamedCode> allergy(const CodeWish& wish) const;
    std::optional<NamedCode> nationality(const CodeWish& wish) const;
    std::optional<NamedCode> service(const CodeWish& wish) const;

    /// A cause of consultation is a revenue of the section that holds them.
    std::optional<NamedCode> causeOfConsultation(const CodeWish& wish) const;

    /// Lets the component resolve exact codes alone, without a window or a message, until the end of its scope.
    class ExactCodesOnly {
      public:
        explicit ExactCodesOnly(const CodeListing& listing) : m_codeSearch(listing.m_codeSearch), m_holds(set(true)) {}
        ~ExactCodesOnly() { set(false); }
        ExactCodesOnly(const ExactCodesOnly&) = delete;
        ExactCodesOnly& operator=(const ExactCodesOnly&) = delete;

        /// False for a component that does not know the wish.
        bool holds() const { return m_holds; }

      private:
        bool set(bool wanted) noexcept;

        const com::Object& m_codeSearch;
        bool m_holds;
    };

  private:
    struct Listing;
    std::optional<com::Object> find(const Listing& listing, const CodeWish& wish) const;
    std::optional<NamedCode> findNamed(const Listing& listing, const CodeWish& wish, const char* nameMember) const;

    const com::Object& m_codeSearch;
};

} // namespace opd::search
