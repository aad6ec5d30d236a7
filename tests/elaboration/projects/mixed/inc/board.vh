`ifndef BOARD_VH
`define BOARD_VH
`define LANE_BITS [`LANE_WIDTH-1:0]
`ifndef REVISION
 `define REVISION 8'h01
`endif
`endif
