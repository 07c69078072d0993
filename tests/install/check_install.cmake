# SPDX-License-Identifier: MIT
# Installs the built library into a scratch prefix and builds a consumer against it.
file(REMOVE_RECURSE ${WORK_DIR})
# Only the library: the Designer plugin goes to Qt's own plugin folder, outside any prefix.
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix
                        --component Unspecified
                RESULT_VARIABLE rc OUTPUT_QUIET)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "cmake --install failed")
endif()
# A sanitized library needs a sanitized executable: the runtime must come first.
set(flags "")
if(SANITIZE)
    set(flags "-fsanitize=address,undefined")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/install/consumer
                        -B ${WORK_DIR}/build -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix
                        -DCMAKE_CXX_FLAGS=${flags} -DCMAKE_EXE_LINKER_FLAGS=${flags}
                RESULT_VARIABLE rc OUTPUT_QUIET)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "find_package(VemoGridLib) failed for the consumer")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "the consumer does not build against the installed package")
endif()
execute_process(COMMAND ${WORK_DIR}/build/consumer RESULT_VARIABLE rc OUTPUT_VARIABLE out)
if(NOT rc EQUAL 0 OR NOT out MATCHES "3.0.15")
    message(FATAL_ERROR "the consumer ran with ${rc}, printed: ${out}")
endif()
