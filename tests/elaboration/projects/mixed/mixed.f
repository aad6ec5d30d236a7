// Lists as simulators take them
+incdir+inc
+define+LANE_WIDTH=8+REVISION=8'hA5
+libext+.v+.sv
-y lib
-v vendor/cells.v
-timescale 1ns/1ps
rtl/mixed_top.sv
rtl\requester.sv
rtl/clockgen.v rtl/lanes.v
rtl/bus_if.sv
vendor/cipher.vp
vhdl/accumulator.vhd
--top-module mixed_top
