// Linked into every program of a sanitizer build: libraries loaded at run time stay loaded. The
// leak checker runs at the very end and tells whose memory it looks at by the library that asked for
// it; once the toolkit has unloaded its platform plugin, and with it the OpenGL driver, none of the
// suppressions that name them would match.
extern "C" __attribute__((visibility("default"))) int dlclose(void*)
{
    return 0;
}
