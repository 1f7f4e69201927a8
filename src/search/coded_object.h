#pragma once

#include "ado/recordset.h"
#include "ado/statement.h"
#include "session/session.h"

#include <string>

namespace opd::search {

/// A code together with what a reference file says about it. Setting the code looks it up; a code that the file does
/// not know leaves the object empty, which is how callers recognise it.
class CodedObject {
  public:
    explicit CodedObject(const Session& session) : m_session(session) {}
    virtual ~CodedObject() = default;
    CodedObject(const CodedObject&) = delete;
    CodedObject& operator=(const CodedObject&) = delete;

    const std::string& Code() const { return m_code; }

    /// Looks the code up, untrimmed. The same code again runs no statement, a blank one empties the object. When the
    /// lookup fails the object keeps the new code and the names it had; nothing is reported.
    void setCode(const std::string& code);

    /// The name that the reference file has for the code.
    virtual std::string name() const = 0;

  protected:
    virtual ado::Statement lookup(const std::string& code) const = 0;
    virtual void take(const ado::Recordset& row) = 0;
    virtual void reset() = 0;

  private:
    const Session& m_session;
    std::string m_code;
};

/// An object whose reference file has one name for a code.
class NamedObject : public CodedObject {
  public:
    using CodedObject::CodedObject;
    std::string name() const override { return m_name; }

  protected:
    /// The column that holds the name.
    virtual const char* nameColumn() const = 0;

  private:
    void take(const ado::Recordset& row) override;
    void reset() override { m_name.clear(); }

    std::string m_name;
};

class clsService final : public NamedObject {
  public:
    using NamedObject::NamedObject;
    std::string ServiceName() const { return name(); }

  private:
    ado::Statement lookup(const std::string& code) const override;
    const char* nameColumn() const override { return "Service"; }
};

class clsAllergy final : public NamedObject {
  public:
    using NamedObject::NamedObject;
    std::string AllergyName() const { return name(); }

  private:
    ado::Statement lookup(const std::string& code) const override;
    const char* nameColumn() const override { return "Allergy"; }
};

class clsDoctor final : public CodedObject {
  public:
    using CodedObject::CodedObject;

    /// "LAST, FIRST, MIDDLE", without the last part when there is no middle name; ", " for an empty object.
    std::string CompleteName() const;
    std::string name() const override { return CompleteName(); }

  private:
    ado::Statement lookup(const std::string& code) const override;
    void take(const ado::Recordset& row) override;
    void reset() override;

    std::string m_lastName;
    std::string m_firstName;
    std::string m_middleName;
};

} // namespace opd::search
