<?php

/**
 * Keeps every answer below the plugin's routes out of page caches, whatever becomes of the request.
 *
 * The header is sent here as well as with the response: an answer in an envelope ("?_envelope") has none of the
 * response's headers.
 *
 * @param WP $wp The request that WordPress has just understood.
 */
function brasslet_forbid_page_caches( $wp ) {
	if ( brasslet_owns_route( brasslet_string( $wp->query_vars['rest_route'] ?? '' ) ) ) {
		brasslet_tell_page_caches();
		header( 'Cache-Control: no-store' );
	}
}

/**
 * Tells page caches to keep nothing of this answer: many heed no header, but the one or the other of these.
 */
function brasslet_tell_page_caches() {
	if ( ! defined( 'DONOTCACHEPAGE' ) ) {
		define( 'DONOTCACHEPAGE', true );
	}
	do_action( 'litespeed_control_set_nocache', 'Brasslet: payment names may change at any time' );
}

/**
 * Says whether a route is the plugin's.
 *
 * @param string $route The route, as in "/brasslet/v1/status".
 * @return bool
 */
function brasslet_owns_route( $route ) {
	// WordPress matches routes without regard to case.
	return 0 === stripos( $route, '/brasslet/' );
}

/**
 * Keeps page caches from serving a key or an address that has changed since.
 *
 * @param WP_HTTP_Response $response The response.
 * @param WP_REST_Server   $server   The server.
 * @param WP_REST_Request  $request  The request.
 * @return WP_HTTP_Response
 */
function brasslet_forbid_caching( $response, $server, $request ) {
	if ( brasslet_owns_route( $request->get_route() ) ) {
		$response->header( 'Cache-Control', 'no-store' );
		// For a logged-in user WordPress would replace this header by its own, which lets a cache keep the reply.
		add_filter( 'rest_send_nocache_headers', '__return_false' );
	}
	return $response;
}
