#include "platform/report/TPdfPrinter.h"

#include "forms/text.h"
#include "platform/report/ETemplate.h"
#include "platform/report/htmlText.h"
#include "platform/report/TWorkFolder.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace alinhavo {
namespace {

namespace fs = std::filesystem;

constexpr auto Glance = std::chrono::milliseconds(20);

/// A process with all that it starts; ended with this.
class TChild {
public:
    explicit TChild(const std::vector<std::string>& arguments)
    {
        std::vector<char*> raw;
        for (const auto& argument : arguments)
            raw.push_back(const_cast<char*>(argument.c_str()));
        raw.push_back(nullptr);
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&files, descriptor, "/dev/null", O_RDWR, 0);
        posix_spawnattr_t attributes;
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
        const int error = posix_spawnp(&process_, raw[0], &files, &attributes, raw.data(), environ);
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&files);
        if (error != 0)
            throw std::runtime_error("O programa que faz o PDF (\"" + arguments[0] + "\") não pode ser iniciado.");
    }
    ~TChild()
    {
        if (ended_)
            return;
        kill(-process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    TChild(const TChild&) = delete;
    TChild& operator=(const TChild&) = delete;

    bool Ended()
    {
        if (!ended_ && waitpid(process_, &status_, WNOHANG) == process_)
            ended_ = true;
        return ended_;
    }
    bool Succeeded() const { return WIFEXITED(status_) && WEXITSTATUS(status_) == 0; }

private:
    pid_t process_ = 0;
    int status_ = 0;
    bool ended_ = false;
};

} // namespace

TPdfPrinter::TPdfPrinter(std::string_view command, std::chrono::seconds patience)
    : patience_(patience)
{
    for (auto& word : Explode(command, " ")) {
        if (!word.empty())
            command_.push_back(std::move(word));
    }
}

std::string TPdfPrinter::Print(std::string_view html, const std::atomic<bool>* cancelled) const
{
    if (!Available())
        throw std::runtime_error("Não há um programa configurado para fazer o PDF; imprima pelo navegador.");
    const TWorkFolder folder;
    std::ofstream(folder.Path() / "relatorio.html", std::ios::binary) << PaperHtml(std::string(html));
    Run(Arguments(folder.Path()), cancelled);
    std::ifstream file(folder.Path() / "relatorio.pdf", std::ios::binary);
    std::string pdf{std::istreambuf_iterator<char>(file), {}};
    if (!pdf.starts_with("%PDF"))
        throw std::runtime_error("O programa que faz o PDF não o fez.");
    return pdf;
}

std::vector<std::string> TPdfPrinter::Arguments(const fs::path& folder) const
{
    auto arguments = command_;
    // Tags for screen readers make the file ten times as large, and the printing twice as long.
    for (const char* fixed : {"--headless", "--disable-gpu", "--no-first-run", "--disable-extensions",
             "--disable-dev-shm-usage", "--no-pdf-header-footer", "--disable-pdf-tagging"})
        arguments.emplace_back(fixed);
    // The browser's own sandbox refuses to work for root; the document itself forbids scripts and fetching.
    if (geteuid() == 0)
        arguments.emplace_back("--no-sandbox");
    arguments.push_back("--user-data-dir=" + (folder / "perfil").string());
    arguments.push_back("--print-to-pdf=" + (folder / "relatorio.pdf").string());
    arguments.push_back("file://" + (folder / "relatorio.html").string());
    return arguments;
}

void TPdfPrinter::Run(const std::vector<std::string>& arguments, const std::atomic<bool>* cancelled) const
{
    const auto deadline = std::chrono::steady_clock::now() + patience_;
    TChild child(arguments);
    while (!child.Ended()) {
        if (cancelled && *cancelled)
            throw EReportCancelled();
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("O programa que faz o PDF demora demais.");
        std::this_thread::sleep_for(Glance);
    }
    if (!child.Succeeded())
        throw std::runtime_error("O programa que faz o PDF terminou com erro.");
}

} // namespace alinhavo
