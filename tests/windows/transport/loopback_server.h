// A server on the loopback interface, in the process of the test, whose every byte a test decides.
#pragma once

#include <winsock2.h>

#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace pavane_test {

// Waits until a socket can be read or written. Returns false when the server is over. A blocking call on
// another thread cannot always be ended, so nothing blocks for long.
inline bool AwaitSocket(SOCKET socket, bool toWrite, const std::atomic<bool>& isOver) {
    while (!isOver) {
        fd_set set;
        FD_ZERO(&set);
        FD_SET(socket, &set);
        timeval moment = {0, 10'000}; // microseconds
        if (select(0, toWrite ? nullptr : &set, toWrite ? &set : nullptr, nullptr, &moment) != 0) return true;
    }
    return false;
}

// One connection, on the server's thread.
class Conversation {
public:
    Conversation(SOCKET socket, std::string request, const std::atomic<bool>& isOver)
        : socket(socket), request(std::move(request)), isOver(isOver) {}

    // Head and body.
    const std::string& Request() const { return request; }
    void Send(std::string_view bytes) const {
        while (!bytes.empty() && AwaitSocket(socket, true, isOver)) {
            const int sent = send(socket, bytes.data(), static_cast<int>(bytes.size()), 0);
            if (sent < 0 && WSAGetLastError() == WSAEWOULDBLOCK) continue;
            if (sent <= 0) return;
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
    }
    // A whole answer of this length.
    void SendAnswer(std::string_view body, const char* status = "200 OK") const {
        Send("HTTP/1.1 " + std::string(status) + "\r\nContent-Length: " + std::to_string(body.size()) +
             "\r\nConnection: close\r\n\r\n");
        Send(body);
    }
    // Lets the end of the connection be a reset, after the client had time to read what was sent.
    void Reset() const {
        Sleep(50);
        const linger now = {1, 0};
        setsockopt(socket, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&now), sizeof now);
    }
    // Says nothing more until the client has closed. Returns false when the server was over first.
    bool AwaitClose() const {
        char byte = 0;
        while (AwaitSocket(socket, false, isOver)) {
            if (recv(socket, &byte, 1, 0) <= 0) return true;
        }
        return false;
    }

private:
    SOCKET socket;
    std::string request;
    const std::atomic<bool>& isOver;
};

// Handles one connection after the other, each after its whole request was read. The connection is closed
// when the handler returns.
class LoopbackServer {
public:
    using Handler = std::function<void(const Conversation&)>;

    explicit LoopbackServer(Handler handler) : handler(std::move(handler)) {
        WSADATA data;
        if (WSAStartup(MAKEWORD(2, 2), &data) != 0) std::abort();
        listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) std::abort();
        listen(listener, 5);
        int length = sizeof address;
        getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
        port = ntohs(address.sin_port);
        worker = std::thread([this] { Serve(); });
    }
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;
    ~LoopbackServer() {
        isOver = true;
        worker.join();
        closesocket(listener);
        WSACleanup();
    }

    int Port() const { return port; }
    std::string Url(const std::string& path = "/call") const {
        return "http://127.0.0.1:" + std::to_string(port) + path;
    }
    std::vector<std::string> Requests() {
        const std::lock_guard guard(lock);
        return requests;
    }
    void AwaitConnections(int count) const {
        while (connections < count) std::this_thread::yield();
    }
    void AwaitRequests(std::size_t count) {
        while (Requests().size() < count) std::this_thread::yield();
    }

private:
    void Serve() {
        while (AwaitSocket(listener, false, isOver)) {
            const SOCKET client = accept(listener, nullptr, nullptr);
            if (client == INVALID_SOCKET) continue;
            ++connections;
            unsigned long doesNotBlock = 1;
            ioctlsocket(client, static_cast<long>(FIONBIO), &doesNotBlock);
            Handle(client);
            closesocket(client);
        }
    }
    void Handle(SOCKET client) {
        const Conversation conversation(client, ReadRequest(client), isOver);
        {
            const std::lock_guard guard(lock);
            requests.push_back(conversation.Request());
        }
        handler(conversation);
    }
    std::string ReadRequest(SOCKET client) const {
        std::string request;
        for (std::size_t wanted = std::string::npos; request.size() < wanted;) {
            if (!AwaitSocket(client, false, isOver)) return request;
            char bytes[4096];
            const int got = recv(client, bytes, sizeof bytes, 0);
            if (got <= 0) return request;
            request.append(bytes, static_cast<std::size_t>(got));
            const std::size_t head = request.find("\r\n\r\n");
            if (head == request.npos) continue;
            const std::size_t length = request.find("Content-Length: ");
            const bool hasBody = length < head;
            wanted = head + 4 + (hasBody ? std::stoul(request.substr(length + 16)) : 0);
        }
        return request;
    }

    Handler handler;
    SOCKET listener = INVALID_SOCKET;
    std::atomic<bool> isOver = false;
    std::atomic<int> connections = 0;
    int port = 0;
    std::mutex lock;
    std::vector<std::string> requests;
    std::thread worker;
};

} // namespace pavane_test
