// SystemVerilog, whatever its name says.
`include "board.vh"
module lanes #(parameter LANES = 3) (
  input  logic                 clk,
  input  logic `LANE_BITS      lane_in [0:LANES-1],
  output logic `LANE_BITS      lane_out [LANES-1:0],
  output logic [0:LANES-1]     edges
);
  logic [1:0] delay [LANES][2];
  logic [7:0] history [0:63];
  integer k;
  genvar up, down;
  generate
    for (up = 0; up < LANES; up = up + 1) begin : rising
      logic `LANE_BITS held;
      always_ff @(posedge clk) held <= lane_in[up];
      edge_detect detect(.clk(clk), .d(held[0]), .rise(edges[up]));
      if (up == 0) begin : first
        wire only = held[1];
      end else begin
        wire other = held[2];
      end
    end
    for (down = LANES - 1; down >= 0; down = down - 1) begin : falling
      wire `LANE_BITS turned = ~rising[down].held;
      assign lane_out[down] = turned;
    end
    case (LANES)
      1: begin : few wire lonely; end
      3: begin : three wire [LANES:1] crowd = edges; end
      default: begin : many wire lots; end
    endcase
  endgenerate
  always_ff @(posedge clk) begin
    for (k = 0; k < LANES; k = k + 1) begin
      delay[k][0] <= lane_in[k][1:0];
      delay[k][1] <= delay[k][0];
    end
    history[lane_in[0][5:0]] <= {delay[0][1], 6'b0};
  end
endmodule
