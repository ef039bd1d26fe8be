// Sets a variable of the environment for the length of a test.
#pragma once

#include <QtCore/QByteArray>
#include <optional>

namespace diary::test {

class Environment {
public:
    Environment(const char* name, const QByteArray& value) : m_name(name) {
        if (qEnvironmentVariableIsSet(name)) m_before = qgetenv(name);
        qputenv(name, value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        if (m_before) {
            qputenv(m_name, *m_before);
        } else {
            qunsetenv(m_name);
        }
    }

private:
    const char* m_name;
    std::optional<QByteArray> m_before;
};

}  // namespace diary::test
