# Copies a plain source text (assets/phrases) into the program's CR LF form:
#   cmake -DIN=source.txt -DOUT=target.Dat -P crlf.cmake
file(READ "${IN}" text)
string(REPLACE "\r\n" "\n" text "${text}")
string(REPLACE "\n" "\r\n" text "${text}")
file(WRITE "${OUT}" "${text}")
