# Cross-build CPython 3.14 for Windows x64 with mingw-w64.
#
# build.sh runs this in the build folder. SRC: the source; PYTHON: a native one; TOOLS: this folder; LIBFFI: where libffi is
# installed; STRIP, OPT: see build.sh.

CC      := x86_64-w64-mingw32-gcc-win32
WINDRES := x86_64-w64-mingw32-windres

include sources.mk

# --- flags -------------------------------------------------------------------

# The C runtime is UCRT, as in python.org's builds.  Debian's gcc links to
# msvcrt.dll by default, hence the specs file.
CRT_CFLAGS  := -D_UCRT -D__MSVCRT_VERSION__=0xE00
CRT_LDFLAGS := -specs=ucrt.specs

OPT ?= -O2 -DNDEBUG
CFLAGS := $(OPT) -std=gnu11 -fwrapv -fno-strict-aliasing $(CRT_CFLAGS) \
    -ffile-prefix-map=$(SRC)=. \
    -Werror=implicit-function-declaration -Werror=int-conversion \
    -Wno-attributes -Wno-incompatible-pointer-types \
    -Wno-deprecated-declarations \
    -I$(SRC)/PC -I$(SRC)/Include -I$(SRC)/Include/internal \
    -I$(SRC)/Include/internal/mimalloc
CORE_CFLAGS := -DPy_BUILD_CORE -DPy_BUILD_CORE_BUILTIN \
    -DHAVE_COMPUTED_GOTOS -DPy_REMOTE_DEBUG \
    -I$(SRC)/Modules/_hacl -I$(SRC)/Modules/_hacl/include -I$(SRC)/Python
LDFLAGS := $(CRT_LDFLAGS) -static -Wl,--no-insert-timestamp $(STRIP)
CORE_LIBS := -lversion -lws2_32 -lpathcch -lbcrypt

# What MSBuild sets for single files.
FLAGS_Modules/getpath := -I$(SRC) -DPREFIX=NULL -DEXEC_PREFIX=NULL \
    -DVERSION=NULL -DVPATH='"..\\.."' -DPYDEBUGEXT='""' -DPLATLIBDIR='"DLLs"'
FLAGS_Python/sysmodule := -DVPATH='"..\\.."'
FLAGS_Python/frozen := -I$(SRC)/Python
FLAGS_Python/dynload_win := -DPY3_DLLNAME='L"python3"'
FLAGS_PC/dl_nt := -DMS_DLL_ID='"3.14"'
FLAGS_Modules/blake2module := -D_Py_HACL_CAN_COMPILE_VEC128
FLAGS_Modules/_hacl/Hacl_Hash_Blake2s_Simd128 := \
    -DHACL_CAN_COMPILE_VEC128 -msse4.2
# What mingw-w64 needs on top.
FLAGS_Modules/hmacmodule := -include intrin.h
FLAGS_Modules/mmapmodule := -DDONT_USE_SEH
FLAGS_Modules/_winapi := -DERROR_CONTROL_C_EXIT=572L

CORE_SRCS += Modules/zlibmodule.c
CORE_LIBS += -lz
FLAGS_Modules/binascii := -DUSE_ZLIB_CRC32
FLAGS_PC/config := -D_Py_HAVE_ZLIB

# --- what to build -----------------------------------------------------------

# No AVX2: gcc does not align the stack to 32 bytes on Windows (its bug 54412).
CORE_SRCS := $(filter-out %_Simd256.c,$(CORE_SRCS))

EXTENSIONS := _asyncio _ctypes _elementtree _multiprocessing _overlapped _queue \
    _socket _uuid _zoneinfo pyexpat select unicodedata
EXPAT := -I$(SRC)/Modules/expat -DXML_STATIC
FLAGS__elementtree := $(EXPAT)
FLAGS_pyexpat := $(EXPAT) -DPYEXPAT_EXPORTS
LIBS__multiprocessing := -lws2_32
LIBS__overlapped := -lws2_32
LIBS__socket := -lws2_32 -liphlpapi -lrpcrt4
LIBS__uuid := -lrpcrt4
LIBS_select := -lws2_32

FLAGS__ctypes := -I$(LIBFFI)/include -DUSING_MALLOC_CLOSURE_DOT_C=1
LIBS__ctypes := -L$(LIBFFI)/lib -lffi -lole32 -loleaut32 -luuid

PROGRAMS := python314.dll python3.dll python.exe pythonw.exe

.PHONY: all
.DELETE_ON_ERROR:
all: $(PROGRAMS) $(EXTENSIONS:%=DLLs/%.pyd)

# --- frozen modules ----------------------------------------------------------

FROZEN_H :=
define frozen_rule
FROZEN_H += $$(SRC)/Python/frozen_modules/$(1).h
$$(SRC)/Python/frozen_modules/$(1).h: $$(SRC)/$(2)
	$$(PYTHON) $$(SRC)/Programs/_freeze_module.py $(1) $$< $$@
endef
$(foreach f,$(FROZEN),$(eval \
    $(call frozen_rule,$(word 1,$(subst :, ,$f)),$(word 2,$(subst :, ,$f)))))

obj/core/Python/frozen.o obj/core/Modules/getpath.o: | $(FROZEN_H)

# --- python314.dll -----------------------------------------------------------

CORE_OBJS := $(CORE_SRCS:%.c=obj/core/%.o) obj/python_nt.o

obj/core/%.o: $(SRC)/%.c
	@mkdir -p $(@D)
	$(CC) $(CFLAGS) $(CORE_CFLAGS) $(FLAGS_$*) -c $< -o $@

python314.dll: $(CORE_OBJS)
	$(file >core.rsp,$^)
	$(CC) -shared -o $@ @core.rsp $(LDFLAGS) $(CORE_LIBS) \
	    -Wl,--out-implib,libpython314.a -Wl,--output-def,python314.def

libpython314.a python314.def: python314.dll ;

# --- python3.dll: the stable ABI ---------------------------------------------

python3.def: python314.def
	$(PYTHON) $(TOOLS)/mksources.py --python3-def $(SRC) $< > $@

python3.dll: python3.def
	$(CC) -shared -nostdlib -Wl,--entry=0 -o $@ $^ $(STRIP) \
	    -Wl,--no-insert-timestamp -Wl,--out-implib,libpython3.a

# --- programs ----------------------------------------------------------------

obj/exe/%.o: $(SRC)/%.c
	@mkdir -p $(@D)
	$(CC) $(CFLAGS) -c $< -o $@

RCFLAGS := -I$(SRC)/PC -I$(SRC)/Include -DFIELD3=0
obj/%.o: $(SRC)/PC/%.rc
	@mkdir -p $(@D)
	$(WINDRES) $(RCFLAGS) -DORIGINAL_FILENAME='\"$*\"' $< $@

EXE_LDFLAGS := $(LDFLAGS) -Wl,--stack,2000000
python.exe: obj/exe/Programs/python.o obj/python_exe.o libpython314.a
	$(CC) -mconsole -municode -o $@ $^ $(EXE_LDFLAGS)
pythonw.exe: obj/exe/PC/WinMain.o obj/pythonw_exe.o libpython314.a
	$(CC) -mwindows -municode -o $@ $^ $(EXE_LDFLAGS)

# --- extension modules -------------------------------------------------------

define extension_rules
obj/$(1)/%.o: $$(SRC)/%.c
	@mkdir -p $$(@D)
	$$(CC) $$(CFLAGS) $$(FLAGS_$(1)) -c $$< -o $$@

DLLs/$(1).pyd: $(patsubst %.c,obj/$(1)/%.o,$(SRCS_$(1))) libpython314.a
	@mkdir -p $$(@D)
	$$(CC) -shared -o $$@ $$^ $$(LDFLAGS) $$(LIBS_$(1))
endef
$(foreach x,$(EXTENSIONS),$(eval $(call extension_rules,$x)))
