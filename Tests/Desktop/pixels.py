"""The pixels of the screen as they are, and a window to hide them with, by way of the X library."""

import ctypes


class _Image(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int) for name in ("width", "height", "xoffset", "format")] + [
        ("data", ctypes.c_void_p),
        *((name, ctypes.c_int) for name in ("order", "unit", "bit_order", "pad", "depth", "bytes_per_line")),
    ]


class _Attributes(ctypes.Structure):
    _fields_ = [
        ("background_pixmap", ctypes.c_ulong),
        ("background_pixel", ctypes.c_ulong),
        ("border_pixmap", ctypes.c_ulong),
        ("border_pixel", ctypes.c_ulong),
        ("bit_gravity", ctypes.c_int),
        ("win_gravity", ctypes.c_int),
        ("backing_store", ctypes.c_int),
        ("backing_planes", ctypes.c_ulong),
        ("backing_pixel", ctypes.c_ulong),
        ("save_under", ctypes.c_int),
        ("event_mask", ctypes.c_long),
        ("do_not_propagate_mask", ctypes.c_long),
        ("override_redirect", ctypes.c_int),
        ("colormap", ctypes.c_ulong),
        ("cursor", ctypes.c_ulong),
    ]


class Pixels:
    """Reads pixels of the whole screen, whatever window they belong to."""

    def __init__(self):
        x = self.x = ctypes.CDLL("libX11.so.6")
        x.XOpenDisplay.restype = ctypes.c_void_p
        x.XDefaultRootWindow.restype = ctypes.c_ulong
        x.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        x.XGetImage.restype = ctypes.POINTER(_Image)
        whole = [ctypes.c_void_p, ctypes.c_ulong] + 2 * [ctypes.c_int] + 2 * [ctypes.c_uint]
        x.XGetImage.argtypes = whole + [ctypes.c_ulong, ctypes.c_int]
        x.XDestroyImage.argtypes = [ctypes.c_void_p]
        x.XCreateWindow.restype = ctypes.c_ulong
        x.XCreateWindow.argtypes = whole + [ctypes.c_uint, ctypes.c_int, ctypes.c_uint, ctypes.c_void_p] + [
            ctypes.c_ulong,
            ctypes.c_void_p,
        ]
        for act in (x.XMapRaised, x.XDestroyWindow):
            act.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
        x.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
        self.display = x.XOpenDisplay(None)
        self.root = x.XDefaultRootWindow(self.display)

    def rows(self, left, top, width, height):
        """The pixels of a rectangle, four bytes each, one bytes object a row."""
        all_planes, z_pixmap = 0xFFFFFFFF, 2
        image = self.x.XGetImage(self.display, self.root, left, top, width, height, all_planes, z_pixmap)
        stride = image.contents.bytes_per_line
        data = ctypes.string_at(image.contents.data, stride * height)
        self.x.XDestroyImage(image)
        return [data[at : at + stride] for at in range(0, len(data), stride)]

    def destroy(self, window):
        """Takes a window away, whosever it is."""
        self.x.XDestroyWindow(self.display, window)
        self.x.XSync(self.display, 0)


class Cover:
    """A white window above all others, which no window manager has a say in."""

    def __init__(self, pixels, left, top, width, height):
        self.pixels = pixels
        background_pixel, override_redirect = 1 << 1, 1 << 9
        attributes = _Attributes(background_pixel=0xFFFFFF, override_redirect=1)
        self.window = pixels.x.XCreateWindow(
            pixels.display, pixels.root, left, top, width, height, 0, 0, 0, None,
            background_pixel | override_redirect, ctypes.byref(attributes),
        )  # fmt: skip
        pixels.x.XMapRaised(pixels.display, self.window)
        pixels.x.XSync(pixels.display, 0)

    def go(self):
        self.pixels.destroy(self.window)
