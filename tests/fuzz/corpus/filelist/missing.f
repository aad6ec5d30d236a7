-I. -DX=$HOME
-f other.f -F rtl/more.f
a\ b.v --unknown "${NONE}/x.v" $(NONE)
