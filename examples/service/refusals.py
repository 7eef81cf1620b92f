"""The two ways in which a call is refused."""


class NotACall(Exception):
    """The request is not a call of the format. The answer is the HTTP status 400 without a body."""


class Denied(Exception):
    """The call is understood, but its details are wrong. The answer has the status 34049."""
