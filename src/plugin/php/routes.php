<?php

/**
 * Registers the routes below /wp-json/brasslet/v1.
 */
function brasslet_register_routes() {
	register_rest_route(
		BRASSLET_NAMESPACE,
		'/status',
		array(
			'methods'             => 'GET',
			'permission_callback' => '__return_true',
			'callback'            => function () {
				$aliases = brasslet_aliases();
				return array(
					'ok'      => true,
					'version' => BRASSLET_VERSION,
					'login'   => 'names',
					'host'    => brasslet_host(),
					'alias'   => implode( ' ', $aliases ),
					'set'     => count( $aliases ) > 0,
				);
			},
		)
	);
	register_rest_route(
		BRASSLET_NAMESPACE,
		'/name',
		array(
			array(
				'methods'             => 'POST',
				'permission_callback' => 'brasslet_allow',
				'callback'            => 'brasslet_save',
			),
			array(
				'methods'             => 'DELETE',
				'permission_callback' => 'brasslet_allow',
				'callback'            => 'brasslet_remove',
			),
		)
	);
	register_rest_route(
		BRASSLET_NAMESPACE,
		'/id/' . BRASSLET_ALIAS_ROUTE,
		array(
			'methods'             => 'GET',
			'permission_callback' => '__return_true',
			'callback'            => 'brasslet_pki',
		)
	);
	register_rest_route(
		BRASSLET_NAMESPACE,
		'/address/' . BRASSLET_ALIAS_ROUTE,
		array(
			'methods'             => array( 'GET', 'POST' ),
			'permission_callback' => '__return_true',
			'callback'            => 'brasslet_pay',
		)
	);
	register_rest_route(
		BRASSLET_NAMESPACE,
		'/health',
		array(
			'methods'             => 'GET',
			'permission_callback' => function () {
				return current_user_can( 'view_site_health_checks' );
			},
			'callback'            => 'brasslet_health_discovery',
		)
	);
}
