#include "tests/support/Prozess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

extern char** environ;

namespace dv::test {

Lauf fuehreAus(const std::string& programm, const std::vector<std::string>& argumente,
               const std::string& eingabe, const std::vector<std::string>& umgebung) {
    int ein[2], aus[2], err[2];
    Lauf lauf;
    if (::pipe(ein) != 0 || ::pipe(aus) != 0 || ::pipe(err) != 0) return lauf;
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::dup2(ein[0], 0);
        ::dup2(aus[1], 1);
        ::dup2(err[1], 2);
        for (int fd : {ein[0], ein[1], aus[0], aus[1], err[0], err[1]}) ::close(fd);
        for (const std::string& e : umgebung) ::putenv(::strdup(e.c_str()));
        std::vector<char*> argv;
        argv.push_back(const_cast<char*>(programm.c_str()));
        for (const std::string& a : argumente) argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        ::execv(programm.c_str(), argv.data());
        ::_exit(127);
    }
    ::close(ein[0]);
    ::close(aus[1]);
    ::close(err[1]);
    std::size_t geschrieben = 0;
    bool einOffen = true;
    if (eingabe.empty()) {
        ::close(ein[1]);
        einOffen = false;
    }
    bool ausOffen = true, errOffen = true;
    char puffer[65536];
    while (ausOffen || errOffen) {
        pollfd fds[3];
        int n = 0;
        if (ausOffen) fds[n++] = {aus[0], POLLIN, 0};
        if (errOffen) fds[n++] = {err[0], POLLIN, 0};
        if (einOffen) fds[n++] = {ein[1], POLLOUT, 0};
        if (::poll(fds, static_cast<nfds_t>(n), -1) < 0) break;
        for (int i = 0; i < n; ++i) {
            if (!fds[i].revents) continue;
            if (fds[i].fd == ein[1]) {
                const ssize_t w =
                    ::write(ein[1], eingabe.data() + geschrieben, eingabe.size() - geschrieben);
                if (w > 0) geschrieben += static_cast<std::size_t>(w);
                if (w <= 0 || geschrieben == eingabe.size()) {
                    ::close(ein[1]);
                    einOffen = false;
                }
                continue;
            }
            const ssize_t r = ::read(fds[i].fd, puffer, sizeof puffer);
            std::string& ziel = fds[i].fd == aus[0] ? lauf.aus : lauf.err;
            if (r > 0) {
                ziel.append(puffer, static_cast<std::size_t>(r));
            } else {
                if (fds[i].fd == aus[0])
                    ausOffen = false;
                else
                    errOffen = false;
            }
        }
    }
    if (einOffen) ::close(ein[1]);
    ::close(aus[0]);
    ::close(err[0]);
    int status = 0;
    ::waitpid(pid, &status, 0);
    lauf.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return lauf;
}

Lauf cli(const std::vector<std::string>& argumente, const std::string& einstellungen,
         const std::string& eingabe) {
    return fuehreAus(std::string(DORVANO_BIN_DIR) + "/dorvano-cli", argumente, eingabe,
                     {"XDG_CONFIG_HOME=" + einstellungen, "DORVANO_BASIS="});
}

}  // namespace dv::test
