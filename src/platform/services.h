#pragma once

#include <functional>
#include <memory>
#include <string>

namespace orv {

class Clock;
class CodePage;
class CompanySendService;
class DbService;
class FileService;
class FileSystem;
class FormHost;
class HelpService;
class HttpControl;
class JapaneseCalendar;
class MachineFacts;
class MessageService;
class PictureLibrary;
class ProfileReader;
class ProgramStarter;
class Registry;
class RunningPrograms;
class SiblingPrograms;
class StringCheckService;
class SysInfoService;
class TransmitEngine;
class WindowSystem;

/// Access to everything outside the program. The composition root fills it once before `Main`; test fixtures fill it
/// with fakes. No other code writes to it or keeps a copy.
struct Services {
    /// The arguments after the program's name on its command line.
    std::string commandTail;
    DbService* db = nullptr;
    MessageService* message = nullptr;
    SysInfoService* sysInfo = nullptr;
    StringCheckService* stringCheck = nullptr;
    FileService* files = nullptr;
    std::function<std::unique_ptr<CompanySendService>()> send;
    HelpService* help = nullptr;
    FileSystem* fileSystem = nullptr;
    ProfileReader* profiles = nullptr;
    Registry* registry = nullptr;
    ProgramStarter* programs = nullptr;
    SiblingPrograms* siblings = nullptr;
    MachineFacts* facts = nullptr;
    Clock* clock = nullptr;
    CodePage* codePage = nullptr;
    JapaneseCalendar* calendar = nullptr;
    std::function<std::unique_ptr<HttpControl>()> http;
    PictureLibrary* pictures = nullptr;
    WindowSystem* windows = nullptr;
    TransmitEngine* transmitEngine = nullptr;
    /// Null in tests and benchmarks, where no other run exists.
    RunningPrograms* running = nullptr;
    FormHost* forms = nullptr;
};

Services& services();

}  // namespace orv
