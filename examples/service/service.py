#!/usr/bin/env python3
"""A small service for Registration, Connection and Feedback. README.md documents it."""

import argparse
import pathlib
import signal
import sys
import threading

from endpoint import Endpoint, fault_of_path, server_context
from faults import FAULTS


def parse_arguments(arguments):
    parser = argparse.ArgumentParser(description="Answers calls on the loopback interface until SIGTERM or SIGINT.")
    parser.add_argument("--port", type=int, default=0, help="the port; a free one without this option")
    parser.add_argument("--fail", choices=sorted(FAULTS), metavar="FAULT", help="how every call fails: "
                        + ", ".join(sorted(FAULTS)))
    parser.add_argument("--control", type=pathlib.Path, metavar="FILE",
                        help="a file with the name of a fault, read at each call; missing or empty means none")
    parser.add_argument("--certificate", metavar="FILE", help="serves HTTPS with this PEM certificate")
    parser.add_argument("--key", metavar="FILE", help="the key of the certificate")
    parsed = parser.parse_args(arguments)
    if bool(parsed.certificate) != bool(parsed.key):
        parser.error("--certificate and --key belong together")
    return parsed


def fault_chooser(options):
    """The fault of a call: that of its path, else that of the control file, else that of the command line."""
    def choose(path):
        fault = fault_of_path(path)
        if fault is None and options.control:
            try:
                fault = options.control.read_text(errors="replace").strip() or None
            except OSError:
                fault = None
        return fault or options.fail
    return choose


def log(text):
    # One line of ASCII, whatever a client sent.
    print("service:", text.encode("ascii", "backslashreplace").decode(), file=sys.stderr, flush=True)


def main(arguments):
    options = parse_arguments(arguments)
    ends = {signal.SIGTERM, signal.SIGINT}
    signal.pthread_sigmask(signal.SIG_BLOCK, ends)  # for every thread, so that sigwait below gets them
    tls = server_context(options.certificate, options.key) if options.certificate else None
    endpoint = Endpoint(options.port, fault_chooser(options), log, tls)
    threading.Thread(target=endpoint.serve_forever, kwargs={"poll_interval": 0.05}).start()
    print(endpoint.url(), flush=True)
    signal.sigwait(ends)
    endpoint.stop()


if __name__ == "__main__":
    main(sys.argv[1:])
