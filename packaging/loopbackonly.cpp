// Preloaded by ./run --vnc: the VNC platform of Qt 6.4 listens on every address of the machine and
// has no setting for that. Every listening address of the process becomes the loopback one, so
// nobody outside this machine can see or steer the saver's window.

#include <cstring>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

extern "C" int bind(int socket, const sockaddr* address, socklen_t length) {
    using Bind = int (*)(int, const sockaddr*, socklen_t);
    static const Bind systemBind = reinterpret_cast<Bind>(dlsym(RTLD_NEXT, "bind"));

    if (address != nullptr && address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) {
        sockaddr_in loopback;
        std::memcpy(&loopback, address, sizeof loopback);
        loopback.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const void* general = &loopback;
        return systemBind(socket, static_cast<const sockaddr*>(general), sizeof loopback);
    }
    if (address != nullptr && address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)) {
        // The IPv4 loopback in its IPv6 form: a viewer that is told 127.0.0.1 reaches it.
        sockaddr_in6 loopback;
        std::memcpy(&loopback, address, sizeof loopback);
        std::memset(&loopback.sin6_addr, 0, sizeof loopback.sin6_addr);
        loopback.sin6_addr.s6_addr[10] = 0xff;
        loopback.sin6_addr.s6_addr[11] = 0xff;
        loopback.sin6_addr.s6_addr[12] = 127;
        loopback.sin6_addr.s6_addr[15] = 1;
        const void* general = &loopback;
        return systemBind(socket, static_cast<const sockaddr*>(general), sizeof loopback);
    }
    return systemBind(socket, address, length);
}
