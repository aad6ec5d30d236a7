// As the simulator takes it.
-work common
common/common_pkg.vhd common/synchroniser.vhd common/tdp_ram.vhd
-work axis
axis/axis_pkg.vhd axis/skid.vhd axis/pipeline.vhd axis/parity.vhd
-work app
app/control.vhd app/control_rtl.vhd app/stream_top.vhd
--top stream_top
-G LANES=2
