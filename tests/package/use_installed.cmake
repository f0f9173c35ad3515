# Run by ctest: installs the build, then builds and runs a consumer from the installed tree.

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${text}")
    endif()
    set(output "${text}" PARENT_SCOPE)
endfunction()

# expect_spiral(<ovalis>): the plug-in built outside the tree draws a pcell for the installed command.
function(expect_spiral ovalis)
    file(REMOVE_RECURSE ${tree}/coils)
    run(${launch} ${ovalis} pcell ${tree}/coils spiral layout spiral --param shape:string=square
        --param turns:int=2 --param width:double=10 --param spacing:double=5
        --param innerDiameter:double=100 --param layer:int=8 --param viaLayer:int=7
        --param underpassLayer:int=6)
    run(${launch} ${ovalis} evaluate ${tree}/coils spiral layout)
    if(NOT output MATCHES "shapes       5\r?\nbox          -105 -75 105 75 ")
        message(FATAL_ERROR "${ovalis} evaluated the spiral to:\n${output}")
    endif()
endfunction()

# expect_consumer(<program>): it must make a library, list it, and be refused a missing one.
function(expect_consumer program)
    file(REMOVE_RECURSE ${tree}/library)
    run(${launch} ${program} ${tree}/library)
    string(REPLACE "\r" "" output "${output}")
    if(NOT output STREQUAL "cell amplifier\ncell divider\nno library\n")
        message(FATAL_ERROR "${program} printed:\n${output}")
    endif()
    if(NOT EXISTS ${tree}/library/.oalib)
        message(FATAL_ERROR "${program} left no library at ${tree}/library")
    endif()
endfunction()

# expect_stripe(<text>): what the host of the plug-in says.
function(expect_stripe text)
    file(REMOVE_RECURSE ${tree}/library)
    run(${launch} ${tree}/plug_in/host${suffix} ${tree}/library)
    string(REPLACE "\r" "" output "${output}")
    if(NOT output STREQUAL text)
        message(FATAL_ERROR "the host of the plug-in printed:\n${output}")
    endif()
endfunction()

# place_plug_in(<directory>): the module and its description.
function(place_plug_in directory)
    file(COPY ${tree}/plug_in/${module} DESTINATION ${directory})
    file(WRITE ${directory}/stripe.plg
         "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<plugIn lib=\"stripe\"/>\n")
endfunction()

# configure(<source> <directory>): a project outside the build tree, on what is installed.
function(configure source directory)
    run(${CMAKE_COMMAND} -S ${source} -B ${directory} -G ${generator} -DCMAKE_BUILD_TYPE=Release
        -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_ROOT_PATH=${prefix} -DCMAKE_CXX_FLAGS=${flags}
        -DCMAKE_TOOLCHAIN_FILE=${toolchain} -DCMAKE_CXX_COMPILER=${compiler})
    run(${CMAKE_COMMAND} --build ${directory})
endfunction()

set(prefix ${tree}/prefix)
file(REMOVE_RECURSE ${prefix} ${tree}/cmake ${tree}/pkg-config ${tree}/headers ${tree}/plug_in
                    ${tree}/plug_ins)
run(${CMAKE_COMMAND} --install ${build} --prefix ${prefix})
set(ENV{WINEPATH} "Z:${prefix}/${bindir}")

# A configuration of brokers that names no pcell type: without any the programs say so each time.
file(WRITE ${tree}/no_brokers/pcellBroker.cfg
     "PROBE_EXE=none\nBROKER_EXE_5=none\nBROKER_EXE_6=none\nCONFIG=,\n")
set(ENV{PCELLBROKER_HOME} ${tree}/no_brokers)
unset(ENV{PCELLBROKER_CONFIG})

list(GET compilers 0 compiler)
configure(${consumer} ${tree}/cmake)
expect_consumer(${tree}/cmake/consumer${suffix})

run(${launch} ${prefix}/${bindir}/ovalis${suffix} --version)

run(${CMAKE_COMMAND} -S ${spiral} -B ${tree}/spiral -G ${generator} -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_ROOT_PATH=${prefix} -DCMAKE_CXX_FLAGS=${flags}
    -DCMAKE_TOOLCHAIN_FILE=${toolchain} -DCMAKE_CXX_COMPILER=${compiler})
run(${CMAKE_COMMAND} --build ${tree}/spiral)
if(launch)
    set(ENV{OA_PLUGIN_PATH} "Z:${tree}/spiral/plugins")
else()
    set(ENV{OA_PLUGIN_PATH} ${tree}/spiral/plugins)
endif()
expect_spiral(${prefix}/${bindir}/ovalis${suffix})

# A plug-in is found by the variable, and in the installation.
configure(${plug_in} ${tree}/plug_in)
set(module libstripe.so)
set(installation ${prefix}/${libdir})
if(toolchain)
    set(module stripe.dll)
    set(installation ${prefix}/${bindir})
endif()
get_filename_component(installation ${installation} DIRECTORY)
set(drawn "stripe 0 0 40000 2500\nstripe bound\n")
unset(ENV{OA_PLUGIN_PATH})
expect_stripe("no stripe\n")
place_plug_in(${tree}/plug_ins)
set(ENV{OA_PLUGIN_PATH} ${tree}/plug_ins)
expect_stripe("${drawn}")
unset(ENV{OA_PLUGIN_PATH})
place_plug_in(${installation}/data/plugins)
expect_stripe("${drawn}")

# So is the default list of libraries; the first place counts.
set(ENV{HOME} ${tree})
foreach(place data data/libraries)
    file(WRITE ${installation}/${place}/lib.defs "SOFTDEFINE of_installation ./${place}\n")
    run(${launch} ${prefix}/${bindir}/ovalis${suffix} libs)
    if(NOT output MATCHES "^of_installation +missing +\\./${place} ")
        message(FATAL_ERROR "the list of the installation was not found: ${output}")
    endif()
endforeach()

if(NOT toolchain)
    file(MAKE_DIRECTORY ${tree}/pkg-config)
    set(ENV{PKG_CONFIG_PATH} ${prefix}/${libdir}/pkgconfig)
    run(pkg-config --cflags --libs ovalis)
    separate_arguments(package_flags UNIX_COMMAND "${output}")
    run(${compiler} -std=c++17 ${flags} ${consumer}/consumer.cpp -o ${tree}/pkg-config/consumer
        ${package_flags} -Wl,-rpath,${prefix}/${libdir})
    expect_consumer(${tree}/pkg-config/consumer)
endif()

file(GLOB headers RELATIVE ${prefix}/${includedir} ${prefix}/${includedir}/ovalis/*.h)
if(NOT headers)
    message(FATAL_ERROR "no headers in ${prefix}/${includedir}/ovalis")
endif()
foreach(header ${headers})
    file(WRITE ${tree}/headers/alone.cpp "#include <${header}>\n#include <${header}>\n")
    foreach(one ${compilers})
        run(${one} -std=c++17 -Wall -Wextra -pedantic -Werror -fsyntax-only
            -I${prefix}/${includedir} -I${prefix}/${includedir}/openaccess
            -I${prefix}/${includedir}/openaccess/oa ${tree}/headers/alone.cpp)
    endforeach()
endforeach()
