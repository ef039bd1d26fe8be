// A document of a format that another program must read, and there is none on this machine.
#pragma once

#include <QtCore/QStringList>
#include <exception>
#include <utility>

namespace diary::documents {

class DocumentToolError : public std::exception {
public:
    explicit DocumentToolError(QStringList tools) : m_tools(std::move(tools)) {}

    // The programs of which one would do, the one to recommend first. The application words it.
    [[nodiscard]] const QStringList& tools() const { return m_tools; }
    // For developers.
    [[nodiscard]] const char* what() const noexcept override {
        return "no program is there that reads this document";
    }

private:
    QStringList m_tools;
};

}  // namespace diary::documents
