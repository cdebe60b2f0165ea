module scriv/host

go 1.19
