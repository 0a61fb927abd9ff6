# Descriptions of the program for the desktop's menu, software centres and the Debian package. The version, the date and
# the short description are set in the top CMakeLists.txt.
string(SUBSTRING "${PROJECT_DESCRIPTION}" 0 1 initial)
string(SUBSTRING "${PROJECT_DESCRIPTION}" 1 -1 rest)
string(TOUPPER "${initial}" initial)
set(VANTORIN_SUMMARY "${initial}${rest}")
set(VANTORIN_DESCRIPTION
"Give Vantorin a site's address and a folder. It fetches the start page, follows
the links that stay on the site, and saves every file of the kinds you want,
over up to 24 connections at a time. The links inside the pages are rewritten
so that they lead into the copy.")
set(VANTORIN_LIMITS "It speaks plain HTTP on port 80; https is not fetched.")
