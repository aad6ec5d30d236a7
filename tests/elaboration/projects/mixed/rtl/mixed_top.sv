`include "board.vh"
module mixed_top import bus_pkg::*; #(parameter int LANES = 3) (
  input  logic             clk_pin, rst_pin, start,
  input  logic `LANE_BITS  lane_in [0:LANES-1],
  output logic `LANE_BITS  lane_out [LANES-1:0],
  output logic [15:0]      secret,
  output logic [11:0]      total,
  output logic             hit,
  inout  wire  [1:0]       pads
);
  localparam int WIDTH = 12;
  logic         clk, locked;
  logic [0:LANES-1] edges;
  logic [7:0]   revision;
  phase_t       phases [2];
  logic [2:1]   marks;
  wire          both;
  assign revision = `REVISION;
  clockgen clock_tree(.clk_pin, .rst_pin, .clk, .locked);
  bus_if #(.WIDTH(8)) bus [1:0] (.clk(clk));
  for (genvar g = 1; g >= 0; g--) begin : masters
    requester #(.ID(g + 1)) master(.bus(bus[g]), .start, .phase(phases[g]));
    assign bus[g].ready = locked;
    assign bus[g].reply = revision;
  end
  lanes #(.LANES(LANES)) all_lanes(.clk, .lane_in, .lane_out, .edges);
  cipher #(.ROUNDS(2)) crypt(.clk, .plain(bus[0].request.data), .secret);
  accumulator #(.WIDTH(WIDTH), .NOTES("twelve")) summing(
    .Clk(clk), .Din({4'h0, revision}), .Dout(total), .Mark(marks), .Hit(hit));
  cell_and joined(.a(edges[0]), .b(hit), .y(both));
  IOCELL pad_cells [1:0] (.I({both, locked}), .T(1'b0), .IO(pads));
`ifndef SYNTHESIS
  sim_probe probe(.clk);
`endif
`ifdef WITH_TRACE
  logic [31:0] trace;
`endif
endmodule
